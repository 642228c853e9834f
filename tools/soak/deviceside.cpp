#include "soak/deviceside.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace soak {

namespace {

constexpr int settleTime = 500; // ms without another line going out

void say(const QString &text)
{
    std::fprintf(stdout, "%s\n", qPrintable(text));
    std::fflush(stdout);
}

} // namespace

DeviceSide::DeviceSide(Load *load)
    : m_load(load)
{
    auto *notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), this, SLOT(onReadable()));
}

bool DeviceSide::begin()
{
    QString error;
    const bool begun = m_load->begin(&error);
    if (begun)
        say(QStringLiteral("ready"));
    else
        std::fprintf(stderr, "varnelsoak: %s\n", qPrintable(error));
    return begun;
}

void DeviceSide::onReadable()
{
    char buffer[256];
    const ssize_t size = read(STDIN_FILENO, buffer, sizeof buffer);
    if (size <= 0)
        return QCoreApplication::quit();
    m_input.append(buffer, int(size));
    if (!m_input.endsWith("count\n"))
        return;
    m_input.clear();
    m_load->quieten();
    m_counted = m_load->handedOver();
    QTimer::singleShot(settleTime, this, SLOT(answerWhenSettled()));
}

void DeviceSide::answerWhenSettled()
{
    const LineCounts before = m_counted;
    m_counted = m_load->handedOver();
    if (m_counted != before) {
        QTimer::singleShot(settleTime, this, SLOT(answerWhenSettled()));
        return;
    }
    for (auto port = m_counted.cbegin(); port != m_counted.cend(); ++port)
        say(port.key() + QLatin1Char(' ') + QString::number(port.value()));
    say(QStringLiteral("lost %1").arg(m_load->lost()));
    say(QStringLiteral("done"));
}

} // namespace soak
