#include "app/process/stopsignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int wakePipe[2];

void wake(int)
{
    const int before = errno;
    [[maybe_unused]] const ssize_t written = ::write(wakePipe[1], "", 1); // a full pipe wakes as well
    errno = before;
}

} // namespace

StopSignals::StopSignals(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), this, SLOT(onReadable()));
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        ::sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN) // nohup
            continue;
        action = {};
        action.sa_handler = wake;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}

void StopSignals::onReadable()
{
    char byte;
    if (::read(wakePipe[0], &byte, sizeof byte) == 1)
        emit arrived();
}
