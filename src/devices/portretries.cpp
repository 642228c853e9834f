#include "devices/portretries.h"

#include <QTimer>

#include <algorithm>

PortRetries::PortRetries(QObject *parent)
    : QObject(parent)
    , m_timer(new QTimer(this))
{
    connect(m_timer, SIGNAL(timeout()), this, SLOT(onTimer()));
}

void PortRetries::start(const QString &portName)
{
    m_waiting[portName].start();
    schedule();
    emit attempt(portName, false);
}

void PortRetries::wait(const QString &portName)
{
    m_waiting[portName].invalidate();
    schedule();
}

void PortRetries::stop(const QString &portName)
{
    m_waiting.remove(portName);
    schedule();
}

void PortRetries::onTimer()
{
    const QStringList due = m_waiting.keys();
    for (const QString &port : due) {
        const auto entry = m_waiting.find(port);
        if (entry == m_waiting.end()) // an attempt on another port may have changed the list
            continue;
        const bool tell = entry->isValid() && entry->elapsed() >= m_pace.patience;
        if (tell)
            wait(port);
        emit attempt(port, tell);
    }
}

void PortRetries::schedule()
{
    const bool anyFresh = std::any_of(
        m_waiting.cbegin(), m_waiting.cend(), [](const QElapsedTimer &since) { return since.isValid(); });
    const int wanted = anyFresh ? m_pace.interval : m_pace.slowInterval;
    if (m_waiting.isEmpty())
        m_timer->stop();
    else if (!m_timer->isActive() || m_timer->interval() != wanted)
        m_timer->start(wanted);
}
