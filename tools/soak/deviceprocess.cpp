#include "soak/deviceprocess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace soak {

namespace {

constexpr int startTime = 20000; // ms
constexpr int endTime = 5000; // ms

} // namespace

DeviceProcess::~DeviceProcess()
{
    m_process.closeWriteChannel(); // that ends it
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(endTime))
        m_process.kill();
}

bool DeviceProcess::start(const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(&m_process, SIGNAL(readyReadStandardOutput()), this, SLOT(onReadable()));
    m_process.start(QCoreApplication::applicationFilePath(), arguments);
    const QDeadlineTimer deadline(startTime);
    while (!m_ready && m_process.waitForReadyRead(int(deadline.remainingTime()))) { }
    return m_ready;
}

void DeviceProcess::askForCounts()
{
    m_answered = false;
    m_process.write("count\n");
}

void DeviceProcess::onReadable()
{
    while (m_process.canReadLine()) {
        const QList<QByteArray> words = m_process.readLine().trimmed().split(' ');
        if (words.size() == 1)
            (words.first() == "ready" ? m_ready : m_answered) = true;
        else if (words.first() == "lost")
            m_lost = words.last().toLongLong();
        else
            m_counts[QString::fromLatin1(words.first())] = words.last().toLongLong();
    }
}

} // namespace soak
