#include "machine/soundserver.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// Whether somebody listens there, be it too busy to answer. Never waits; a server that has ended leaves its
// socket behind, and each sound would be complained of on standard error.
bool isListening(const QString &socketPath)
{
    const QByteArray path = QFile::encodeName(socketPath);
    sockaddr_un address = {};
    if (size_t(path.size()) >= sizeof address.sun_path)
        return QFile::exists(socketPath);
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    // Without a socket of one's own that fails, too.
    const bool answered = connect(probe, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0
        || errno == EAGAIN;
    close(probe);
    return answered;
}

} // namespace

// Sounds go to a server: one that listens or is named, or one that the system starts where there is a sound
// card. The sound library's list of devices is the server's answer: it is waited for, with all ports unread,
// even when the server hangs, and where none runs each request complains on standard error.
bool hasSoundOutput()
{
    for (const char *folder : {"PULSE_RUNTIME_PATH", "XDG_RUNTIME_DIR"}) {
        const QString path = qEnvironmentVariable(folder);
        if (!path.isEmpty()
            && (isListening(path + QStringLiteral("/native"))
                || isListening(path + QStringLiteral("/pulse/native"))))
            return true;
    }
    const QStringList outputs{QStringLiteral("pcm*p")};
    return !qEnvironmentVariableIsEmpty("PULSE_SERVER") || isListening(QStringLiteral("/run/pulse/native"))
        || !QDir(QStringLiteral("/dev/snd")).entryList(outputs, QDir::System).isEmpty();
}
