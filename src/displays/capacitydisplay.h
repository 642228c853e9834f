#pragma once

#include "displays/capacitychart.h"
#include "widgets/spoken.h"

#include <QTimer>
#include <QWidget>

class QPushButton;
class ViewState;

/// Compares the capacities of recorded processes as bars, eight at a time; always on top.
class CapacityDisplay : public QWidget, public Spoken {
    Q_OBJECT

public:
    explicit CapacityDisplay(QWidget *parent = nullptr);

    /// `state` is not owned and outlives this.
    void setViewState(ViewState *state);

    /// The new entry is in view.
    void addEntry(const CapacityEntry &entry);
    /// Entry `k` counted from 1; nothing where there is none.
    void changeEntry(const CapacityEntry &entry, int k);
    /// Entry `k` counted from 0; nothing where there is none. As many of the others stay in view as fit.
    void removeEntry(int k);
    void clear();
    /// How many graph windows there are: opening the display pulls the view back to them.
    void setWindowCount(int count);

    QSize sizeHint() const override;
    QString spokenText() const override; ///< title and the bars in view

public slots:
    void showNext();
    void showPrev();
    /// Prints the bars in view through the print dialog.
    void print();

signals:
    /// The user has closed the window.
    void closed();
    /// The display is shown and its entries are up to a second old.
    void entriesWanted();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void wantEntries();
    void onViewChanged();

private:
    QPushButton *createButton(const QString &icon, const QString &toolTip, const char *slot);
    void refresh();
    QString textOf(int index) const;

    ViewState *m_viewState = nullptr; // not owned, outlives this
    CapacityChart m_chart;
    int m_end = 0; // one past the rightmost entry in view
    int m_windowCount = 0;
    QTimer m_updateTimer{this};
    QPushButton *m_next;
    QPushButton *m_prev;
};
