#include "support/ptypair.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

// All that is there, and what comes within so many ms.
QByteArray takeFrom(int end, int patience)
{
    QByteArray all;
    char buffer[4096];
    pollfd ready = {end, POLLIN, 0};
    while (poll(&ready, 1, patience) > 0) {
        const auto n = read(end, buffer, sizeof buffer);
        if (n <= 0)
            break;
        all.append(buffer, int(n));
    }
    return all;
}

} // namespace

PtyPair::PtyPair(const QString &folder, const QString &portName)
    : m_portName(portName)
    , m_link(folder + QLatin1Char('/') + portName)
{
    termios settings = {};
    cfmakeraw(&settings);
    char name[128] = {};
    if (openpty(&m_master, &m_slave, name, &settings, nullptr) != 0)
        qFatal("no pseudo-terminal: %d", errno);
    fcntl(m_master, F_SETFL, fcntl(m_master, F_GETFL) | O_NONBLOCK);
    QFile::remove(m_link);
    QFile::link(QString::fromLocal8Bit(name), m_link);
}

PtyPair::~PtyPair()
{
    hangUp();
}

void PtyPair::send(const QByteArray &bytes)
{
    for (int sent = 0; sent < bytes.size();) {
        const auto n = write(m_master, bytes.constData() + sent, size_t(bytes.size() - sent));
        if (n > 0) {
            sent += int(n);
            continue;
        }
        if (n < 0 && errno != EAGAIN)
            return;
        pollfd ready = {m_master, POLLOUT, 0};
        if (poll(&ready, 1, 2000) <= 0)
            return;
    }
}

QByteArray PtyPair::received()
{
    return takeFrom(m_master, 0);
}

QByteArray PtyPair::takeUnread()
{
    return takeFrom(m_slave, 100);
}

int PtyPair::waiting() const
{
    int bytes = 0;
    ioctl(m_slave, FIONREAD, &bytes);
    return bytes;
}

termios PtyPair::settings() const
{
    termios settings = {};
    tcgetattr(m_slave, &settings);
    return settings;
}

void PtyPair::hangUp()
{
    if (m_master < 0)
        return;
    QFile::remove(m_link);
    close(m_slave);
    close(m_master);
    m_master = m_slave = -1;
}
