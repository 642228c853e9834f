#include "simulator/stopsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace sim {

namespace {

int wakePipe[2] = {-1, -1};

void wake(int)
{
    const char byte = 0;
    // a full pipe wakes as well
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], &byte, 1);
}

} // namespace

StopSignals::StopSignals(QObject *parent)
    : QObject(parent)
{
    if (pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(onReadable()));
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        action.sa_handler = wake;
        sigaction(number, &action, nullptr);
    }
}

void StopSignals::onReadable()
{
    char byte = 0;
    if (read(wakePipe[0], &byte, 1) == 1)
        emit arrived();
}

} // namespace sim
