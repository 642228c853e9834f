#include "devices/portretries.h"

#include <QTimer>

#include <algorithm>

PortRetries::PortRetries(QObject *parent)
    : QObject(parent)
    , timer(new QTimer(this))
{
    connect(timer, SIGNAL(timeout()), this, SLOT(onTimer()));
}

void PortRetries::start(const QString &portName)
{
    waiting[portName].start();
    schedule();
    emit attempt(portName, false);
}

void PortRetries::wait(const QString &portName)
{
    waiting[portName].invalidate();
    schedule();
}

void PortRetries::stop(const QString &portName)
{
    if (waiting.remove(portName) > 0)
        schedule();
}

void PortRetries::onTimer()
{
    const QStringList due = waiting.keys();
    for (const QString &port : due) {
        const auto entry = waiting.find(port);
        if (entry == waiting.end()) // an attempt on another port may have changed the list
            continue;
        const bool tell = entry->isValid() && entry->elapsed() >= patience;
        if (tell)
            wait(port);
        emit attempt(port, tell);
    }
}

void PortRetries::schedule()
{
    const bool anyFresh = std::any_of(
        waiting.cbegin(), waiting.cend(), [](const QElapsedTimer &since) { return since.isValid(); });
    const int wanted = anyFresh ? interval : slowInterval;
    if (waiting.isEmpty())
        timer->stop();
    else if (!timer->isActive() || timer->interval() != wanted)
        timer->start(wanted);
}
