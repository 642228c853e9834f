#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QDialog;

/// Keeps dialogs and boxes above the displays, which stay on top of all other windows and would cover the
/// questions of the main window: those that open while a display is in sight, and those over which a display
/// comes up. While a modal one is open, displays that would cover it stand among the other windows. Without a
/// display in sight dialogs are left as they are.
class DialogsOnTop : public QObject {
    Q_OBJECT

public:
    /// Watches every dialog and display of the program from now on.
    explicit DialogsOnTop(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void arrange();

private:
    void arrangeSoon();

    QList<QPointer<QDialog>> m_dialogs; ///< those in sight, in the order in which they opened
    bool m_arranging = false; ///< asked for, not done yet
};
