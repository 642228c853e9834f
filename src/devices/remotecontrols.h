#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class DeviceTargets;
class DialogRemoteControl;
class QAction;
class QMenu;
class QWidget;
class SerialReader;

/// The command that opens the remote control, and the dialogs that it has opened: one a reader.
class RemoteControls : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the dialogs. Nothing is owned; all outlive this. With one listened port
    /// `action` opens that port's dialog; with several it is a submenu of them, whether they have sent
    /// anything or not; with none it is disabled, its tool tip says why.
    RemoteControls(QWidget *window, DeviceTargets *targets, QAction *action);
    ~RemoteControls() override;

public slots:
    /// Call when ports or the active window have changed.
    void refresh();
    /// Opens the remote control of the current window's device, else that of the only listened port. One
    /// that is open already comes to the front and asks its device anew for its state.
    void open();

private slots:
    /// Opens the one of the port that `chosen`, an action of the submenu, names.
    void openChosen(QAction *chosen);

private:
    void openFor(SerialReader *reader);
    void fillMenu(const QStringList &ports, const QString &current);

    QWidget *m_window;
    DeviceTargets *m_targets;
    QAction *m_action;
    std::unique_ptr<QMenu> m_menu; // of the action while several ports are listened on
    QMap<SerialReader *, QPointer<DialogRemoteControl>> m_dialogs; // keys are compared, never followed
};
