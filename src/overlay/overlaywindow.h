#pragma once

#include "overlay/scene/overlayrequest.h"

#include <QWidget>

class OverlayPlot;
class QCheckBox;
class QComboBox;
class QPushButton;
class QSpinBox;
class QStatusBar;
class ViewState;

/// The window in which recordings lie over each other, with what is chosen about them. It asks its owner for
/// recordings and for a file to draw itself to.
class OverlayWindow : public QWidget {
    Q_OBJECT

public:
    /// `state` outlives this.
    explicit OverlayWindow(const ViewState *state, QWidget *parent = nullptr);

    OverlayPlot *plot() const { return m_plot; }
    QStatusBar *statusBar() const { return m_statusBar; }
    /// Drawn by `request`, for screens and files: see OverlayPlot::picture().
    static void paint(QPainter *painter, const OverlayRequest &request);

public slots:
    /// Prints what is shown through the print dialog.
    void print();

signals:
    /// Files are to be added to what is shown.
    void filesWanted();
    /// The open graph windows are to be shown instead.
    void windowsWanted();
    /// What is shown is to be drawn to a file.
    void pictureWanted();
    /// The user has closed the window.
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private slots:
    void chooseValue(int index);
    void chooseAxis(int index);
    void chooseLinedUp(bool linedUp);
    void chooseShift(int seconds);
    void remove();
    void showPicked();

private:
    void createChoices();
    void createCommands();
    QPushButton *createButton(const QString &text, const QString &tip, const char *name);

    OverlayPlot *m_plot;
    QComboBox *m_value;
    QComboBox *m_axis;
    QCheckBox *m_linedUp;
    QSpinBox *m_shift;
    QPushButton *m_remove = nullptr;
    QPushButton *m_picture = nullptr;
    QPushButton *m_print = nullptr;
    QStatusBar *m_statusBar;
};
