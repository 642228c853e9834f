#include "devices/remotecontrols.h"

#include "desk/windowplace.h"
#include "devices/devicetargets.h"
#include "dialogs/dialogremotecontrol.h"
#include "link/serialreader.h"

#include <QAction>
#include <QMenu>

RemoteControls::RemoteControls(QWidget *window, DeviceTargets *targets, QAction *action)
    : QObject(window)
    , m_window(window)
    , m_targets(targets)
    , m_action(action)
    , m_menu(std::make_unique<QMenu>())
{
    connect(m_action, SIGNAL(triggered()), this, SLOT(open()));
    connect(m_menu.get(), SIGNAL(triggered(QAction*)), this, SLOT(openChosen(QAction*)));
    refresh();
}

RemoteControls::~RemoteControls() = default;

void RemoteControls::refresh()
{
    QStringList ports;
    const QVector<SerialReader *> readers = m_targets->readers();
    for (const SerialReader *reader : readers)
        ports.append(reader->portName());
    const SerialReader *active = m_targets->activeReader();
    fillMenu(ports, active ? active->portName() : QString());
    const bool several = ports.size() > 1;
    const QString tip = ports.isEmpty() ? tr("No port is listened on: choose one in the preferences.")
                                        : tr("Operate the front panel of the charger.");
    m_action->setMenu(several ? m_menu.get() : nullptr);
    m_action->setText(several ? tr("Remote control") : tr("Remote control..."));
    m_action->setEnabled(!ports.isEmpty());
    m_action->setStatusTip(tip);
    m_action->setToolTip(tip);
}

void RemoteControls::fillMenu(const QStringList &ports, const QString &current)
{
    m_menu->clear();
    for (const QString &port : ports) {
        const QString text = port == current ? tr("%1 (current window)...") : tr("%1...");
        QAction *choice
            = m_menu->addAction(text.arg(QString(port).replace(QLatin1Char('&'), QLatin1String("&&"))));
        choice->setData(port);
    }
}

void RemoteControls::open()
{
    SerialReader *active = m_targets->activeReader();
    openFor(active ? active : m_targets->onlyReader());
}

void RemoteControls::openChosen(QAction *chosen)
{
    const QVector<SerialReader *> readers = m_targets->readers();
    for (SerialReader *reader : readers) {
        if (reader->portName() == chosen->data().toString())
            return openFor(reader);
    }
}

void RemoteControls::openFor(SerialReader *reader)
{
    if (!reader)
        return;
    QPointer<DialogRemoteControl> &dialog = m_dialogs[reader];
    if (dialog && dialog->isVisible()) {
        dialog->timerEventTryb();
    } else {
        dialog = new DialogRemoteControl(reader, m_window);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    WindowPlace::bringForward(dialog);
}
