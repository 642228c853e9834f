#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QDialog;

/// Keeps dialogs and boxes above the displays, which stay on top of all other windows and would cover the
/// questions of the main window: those that open while a display is in sight, and those over which a display
/// comes up. Without a display in sight dialogs are left as they are.
class DialogsOnTop : public QObject {
    Q_OBJECT

public:
    /// Watches every dialog and display of the program from now on.
    explicit DialogsOnTop(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void raiseDialogs();

private:
    QList<QPointer<QDialog>> m_dialogs; ///< in the order in which they opened
    bool m_raising = false; ///< asked for, not done yet
};
