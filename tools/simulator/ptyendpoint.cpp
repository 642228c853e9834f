#include "simulator/ptyendpoint.h"

#include "simulator/openwatch.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace sim {

namespace {

constexpr int mostQueued = 256 * 1024; // a listener that takes nothing for longer loses lines, as on a wire

QString systemError(const char *what)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(what), QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

PtyEndpoint::PtyEndpoint(const QString &folder, const QString &port, QObject *parent)
    : QObject(parent)
    , m_link(QDir(folder).absoluteFilePath(port))
    , m_watch(OpenWatch::shared())
{
    connect(m_watch.get(), SIGNAL(changed(int,int)), SLOT(onOpened(int,int)));
}

PtyEndpoint::~PtyEndpoint()
{
    blockSignals(true);
    unplug();
}

bool PtyEndpoint::plug(QString *error)
{
    if (isPlugged())
        return true;
    if (!openPair(error)) {
        unplug();
        return false;
    }
    m_watchId = m_watch->add(m_slaveName);
    m_readNotifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_readNotifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(onReadable()));
    m_writeNotifier = new QSocketNotifier(m_master, QSocketNotifier::Write, this);
    m_writeNotifier->setEnabled(false);
    connect(m_writeNotifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(onWritable()));
    if (makeLink(m_slaveName, error))
        return true;
    unplug();
    return false;
}

bool PtyEndpoint::openPair(QString *error)
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    char name[128] = {};
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0
        || ptsname_r(m_master, name, sizeof name) != 0) {
        *error = systemError("no pseudo-terminal");
        return false;
    }
    m_slaveName = name;
    m_slave = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings = {};
    if (m_slave < 0 || tcgetattr(m_slave, &settings) != 0) {
        *error = systemError(name);
        return false;
    }
    cfmakeraw(&settings);
    cfsetspeed(&settings, B19200);
    tcsetattr(m_slave, TCSANOW, &settings);
    return true;
}

/// Puts the link in its place in one step, so that nobody lists half of it; a link that is there already is
/// left over from a run that was killed.
bool PtyEndpoint::makeLink(const QByteArray &target, QString *error) const
{
    const QFileInfo old(m_link);
    if (old.exists() && !old.isSymLink()) {
        *error = QStringLiteral("%1 is there and no link").arg(m_link);
        return false;
    }
    if (!QDir().mkpath(old.path())) {
        *error = QStringLiteral("can't make the folder %1").arg(old.path());
        return false;
    }
    const QByteArray link = QFile::encodeName(m_link);
    const QByteArray fresh = QFile::encodeName(old.path() + QLatin1String("/.new-") + old.fileName());
    ::unlink(fresh.constData());
    if (::symlink(target.constData(), fresh.constData()) == 0
        && ::rename(fresh.constData(), link.constData()) == 0)
        return true;
    *error = systemError(link.constData());
    return false;
}

void PtyEndpoint::unplug()
{
    if (isPlugged() && QFile::symLinkTarget(m_link) == QFile::decodeName(m_slaveName))
        QFile::remove(m_link);
    m_watch->remove(m_watchId);
    m_watchId = -1;
    delete std::exchange(m_readNotifier, nullptr);
    delete std::exchange(m_writeNotifier, nullptr);
    for (int *end : {&m_slave, &m_master})
        if (*end >= 0)
            ::close(std::exchange(*end, -1));
    dropQueue();
    if (std::exchange(m_listeners, 0) > 0)
        emit listenedChanged(false);
}

bool PtyEndpoint::isListened()
{
    m_watch->poll();
    return isPlugged() && (m_watchId < 0 || m_listeners > 0);
}

void PtyEndpoint::send(const QByteArray &bytes, int tag)
{
    if (!isListened() || m_queued + bytes.size() > mostQueued) {
        emit lost(bytes, tag);
        return;
    }
    m_queue.enqueue({bytes, tag});
    m_queued += bytes.size();
    if (m_queue.size() == 1)
        onWritable();
}

void PtyEndpoint::onWritable()
{
    while (!m_queue.isEmpty()) {
        const Parcel &head = m_queue.head();
        const ssize_t size
            = ::write(m_master, head.bytes.constData() + m_sent, size_t(head.bytes.size() - m_sent));
        m_sent += size > 0 ? int(size) : 0;
        if (m_sent < head.bytes.size())
            break;
        m_sent = 0;
        m_queued -= head.bytes.size();
        const Parcel done = m_queue.dequeue();
        emit handedOver(done.bytes, done.tag);
    }
    if (m_writeNotifier)
        m_writeNotifier->setEnabled(!m_queue.isEmpty());
}

void PtyEndpoint::onReadable()
{
    char buffer[4096];
    const ssize_t size = ::read(m_master, buffer, sizeof buffer);
    if (size > 0)
        emit received(QByteArray(buffer, int(size)));
}

void PtyEndpoint::onOpened(int id, int openings)
{
    if (id != m_watchId || id < 0)
        return;
    const bool before = m_listeners > 0;
    m_listeners = qMax(0, m_listeners + openings);
    if (before == (m_listeners > 0))
        return;
    if (before) {
        dropQueue();
        tcflush(m_slave, TCIFLUSH);
    }
    emit listenedChanged(!before);
}

void PtyEndpoint::dropQueue()
{
    const QQueue<Parcel> dropped = std::exchange(m_queue, {});
    m_sent = m_queued = 0;
    for (const Parcel &parcel : dropped)
        emit lost(parcel.bytes, parcel.tag);
}

} // namespace sim
