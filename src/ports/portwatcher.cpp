#include "ports/portwatcher.h"

#include "ports/portscan.h"

#include <QStringList>
#include <QTimer>

namespace {

const char lostIdentity[] = "lost"; // no device has it

} // namespace

PortWatcher::PortWatcher(QObject *parent, int period)
    : QObject(parent)
    , m_timer(new QTimer(this))
    , m_fingerprint(portFingerprint()) // before the list: what comes between is seen at the first look
{
    QStringList order;
    // cppcheck-suppress useInitializationList ; needs what the lines above have prepared
    m_known = presentPorts(&order);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(look()));
    m_timer->start(period);
}

void PortWatcher::noteLost(const QString &name)
{
    const auto port = m_known.find(name);
    if (port == m_known.end())
        return;
    port->identity = lostIdentity;
    m_fingerprint.reset();
    m_timer->start(); // time for the system to take the port away
}

void PortWatcher::look()
{
    const QByteArray fingerprint = portFingerprint();
    if (fingerprint == m_fingerprint)
        return;
    if (!m_fingerprint)
        forgetListedPorts();
    m_fingerprint = fingerprint;
    QStringList order;
    const KnownPorts before = m_known;
    const KnownPorts now = m_known = presentPorts(&order); // copies: who is told may call noteLost()
    for (const Known &old : before) {
        if (now.value(old.port.name).identity != old.identity)
            emit removed(old.port);
    }
    for (const QString &name : qAsConst(order)) {
        if (before.value(name).identity != now.value(name).identity)
            emit arrived(now.value(name).port);
    }
}

PortWatcher::KnownPorts PortWatcher::presentPorts(QStringList *order)
{
    KnownPorts known;
    const QVector<PortInfo> ports = listPorts();
    for (const PortInfo &port : ports) {
        known.insert(port.name, {port, portIdentity(port)});
        order->append(port.name);
    }
    return known;
}
