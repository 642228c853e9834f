#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>

class DeviceTargets;
class DialogRemoteControl;
class QAction;
class QWidget;
class SerialReader;

/// The command that opens the remote control, and the dialogs that it has opened: one a reader.
class RemoteControls : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the dialogs. Nothing is owned; all outlive this.
    RemoteControls(QWidget *window, DeviceTargets *targets);

    /// To be put into a menu; disabled, with the reason as its tool tip, while there is no device to control.
    QAction *action() const { return m_action; }

public slots:
    /// Call when ports or the active window have changed.
    void refresh();
    /// Opens the remote control of the current window's device, else that of the only listened port. One that
    /// is open already comes to the front and asks its device anew for its state.
    void open();

private:
    SerialReader *target() const;

    QWidget *window;
    DeviceTargets *targets;
    QAction *m_action; // child
    QMap<SerialReader *, QPointer<DialogRemoteControl>> dialogs; // keys are compared, never followed
};
