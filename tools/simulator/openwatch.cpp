#include "simulator/openwatch.h"

#include <QSocketNotifier>

#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace sim {

std::shared_ptr<OpenWatch> OpenWatch::shared()
{
    static std::weak_ptr<OpenWatch> one;
    std::shared_ptr<OpenWatch> watch = one.lock();
    if (!watch)
        one = watch = std::shared_ptr<OpenWatch>(new OpenWatch);
    return watch;
}

OpenWatch::OpenWatch()
    : m_queue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_queue < 0)
        return;
    auto *notifier = new QSocketNotifier(m_queue, QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(poll()));
}

OpenWatch::~OpenWatch()
{
    if (m_queue >= 0)
        close(m_queue);
}

int OpenWatch::add(const QByteArray &path)
{
    return m_queue < 0 ? -1 : inotify_add_watch(m_queue, path.constData(), IN_OPEN | IN_CLOSE);
}

void OpenWatch::remove(int id)
{
    if (m_queue >= 0 && id >= 0)
        inotify_rm_watch(m_queue, id);
}

void OpenWatch::poll()
{
    alignas(inotify_event) char buffer[4096];
    for (;;) {
        const ssize_t size = m_queue < 0 ? 0 : read(m_queue, buffer, sizeof buffer);
        if (size <= 0)
            return;
        for (ssize_t at = 0; at < size;) {
            inotify_event event;
            memcpy(&event, buffer + at, sizeof event);
            at += ssize_t(sizeof event + event.len);
            if (event.mask & (IN_OPEN | IN_CLOSE))
                emit changed(event.wd, event.mask & IN_OPEN ? 1 : -1);
        }
    }
}

} // namespace sim
