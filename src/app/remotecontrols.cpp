#include "app/remotecontrols.h"

#include "app/devicetargets.h"
#include "dialogs/dialogremotecontrol.h"
#include "link/serialreader.h"

#include <QAction>
#include <QIcon>

RemoteControls::RemoteControls(QWidget *parentWindow, DeviceTargets *deviceTargets)
    : QObject(parentWindow)
    , window(parentWindow)
    , targets(deviceTargets)
    , m_action(new QAction(QIcon(QStringLiteral(":/Icons/remote.png")), tr("Remote control..."), this))
{
    m_action->setObjectName(QStringLiteral("remoteControlAction"));
    connect(m_action, SIGNAL(triggered()), this, SLOT(open()));
    refresh();
}

SerialReader *RemoteControls::target() const
{
    SerialReader *active = targets->activeReader();
    return active ? active : targets->onlyReader();
}

void RemoteControls::refresh()
{
    QString tip = tr("Operate the front panel of the charger.");
    if (targets->readers().isEmpty())
        tip = tr("No port is listened on: choose one in the preferences.");
    else if (!target())
        tip = tr("Several ports are listened on: choose the window of the device first.");
    m_action->setEnabled(target() != nullptr);
    m_action->setStatusTip(tip);
    m_action->setToolTip(tip);
}

void RemoteControls::open()
{
    SerialReader *reader = target();
    if (!reader)
        return;
    QPointer<DialogRemoteControl> &dialog = dialogs[reader];
    if (dialog && dialog->isVisible()) {
        dialog->timerEventTryb();
    } else {
        dialog = new DialogRemoteControl(reader, window);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}
