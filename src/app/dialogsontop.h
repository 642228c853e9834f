#pragma once

#include <QObject>

/// Keeps modal dialogs above the displays, which stay on top of all other windows and would cover the
/// questions of the main window. Without a display in sight dialogs are left as they are.
class DialogsOnTop : public QObject {
    Q_OBJECT

public:
    /// Watches every dialog of the program from now on.
    explicit DialogsOnTop(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
