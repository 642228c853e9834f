#include "app/soundserver.h"

#include <QDir>
#include <QFile>

// Sounds go to a server: one that listens or is named, or one that the system starts where there is a sound
// card. The sound library's list of devices is the server's answer: it is waited for, with all ports unread,
// even when the server hangs, and where none runs each request complains on standard error.
bool hasSoundOutput()
{
    for (const char *folder : {"PULSE_RUNTIME_PATH", "XDG_RUNTIME_DIR"}) {
        const QString path = qEnvironmentVariable(folder);
        if (!path.isEmpty()
            && (QFile::exists(path + QStringLiteral("/native"))
                || QFile::exists(path + QStringLiteral("/pulse/native"))))
            return true;
    }
    const QStringList outputs{QStringLiteral("pcm*p")};
    return !qEnvironmentVariableIsEmpty("PULSE_SERVER") || QFile::exists(QStringLiteral("/run/pulse/native"))
        || !QDir(QStringLiteral("/dev/snd")).entryList(outputs, QDir::System).isEmpty();
}
