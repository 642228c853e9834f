#include "app/portretries.h"

#include <QTimer>

PortRetries::PortRetries(QObject *parent)
    : QObject(parent)
    , timer(new QTimer(this))
{
    timer->setInterval(interval);
    connect(timer, SIGNAL(timeout()), this, SLOT(onTimer()));
}

void PortRetries::start(const QString &portName)
{
    waiting[portName].start();
    timer->start();
    emit attempt(portName, false);
}

void PortRetries::stop(const QString &portName)
{
    waiting.remove(portName);
    if (waiting.isEmpty())
        timer->stop();
}

void PortRetries::onTimer()
{
    const QStringList ports = waiting.keys();
    for (const QString &port : ports) {
        if (!waiting.contains(port)) // an attempt on another port may have changed the list
            continue;
        const bool last = waiting[port].elapsed() >= patience;
        if (last)
            stop(port);
        emit attempt(port, last);
    }
}
