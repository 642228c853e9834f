#include "app/process/logoutput.h"

#include <QString>
#include <QtGlobal>

#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int longestMessage = 1000; // letters; a pipe that takes anything takes these at once

QtMessageHandler usualHandler = nullptr;

void writeIfTaken(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    pollfd standardError{STDERR_FILENO, POLLOUT, 0};
    if (::poll(&standardError, 1, 0) == 1) // or nobody reads, which does no harm
        usualHandler(type, context, message.left(longestMessage));
}

} // namespace

void protectLog()
{
    std::signal(SIGPIPE, SIG_IGN);
    usualHandler = qInstallMessageHandler(writeIfTaken);
}
