#include "app/process/instanceplace.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int noDescriptor = -1; // closing it does nothing
constexpr int numberWidth = 20; // of the process's number in its lock: none is longer

bool isPrivate(const struct stat &status)
{
    return S_ISDIR(status.st_mode) && status.st_uid == ::geteuid()
        && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

} // namespace

// The folder for temporary files is no place for either: whoever is there first has the name.
QString ownFolder()
{
    struct stat status { };
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (runtime.startsWith('/') && ::stat(runtime.constData(), &status) == 0 && isPrivate(status))
        return QFile::decodeName(runtime);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    const QString folder = data + QStringLiteral("/run");
    const QByteArray name = QFile::encodeName(folder);
    QDir().mkpath(data);
    ::mkdir(name.constData(), S_IRWXU);
    return ::lstat(name.constData(), &status) == 0 && isPrivate(status) ? folder : QString();
}

QString serverName(const QString &folder, const QString &place)
{
    return folder + QLatin1Char('/') + place;
}

// The window manager decides.
void letComeForward(qint64) { }

bool isOwnPeer(qintptr socketDescriptor)
{
    ucred peer{};
    socklen_t length = sizeof peer;
    return ::getsockopt(int(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0
        && peer.uid == ::geteuid();
}

class PlaceLock::Private {
public:
    QByteArray fileName;
    int descriptor = noDescriptor;
};

PlaceLock::PlaceLock(const QString &fileName)
    : d(std::make_unique<Private>())
{
    d->fileName = QFile::encodeName(fileName);
}

PlaceLock::~PlaceLock()
{
    giveBack();
}

// A lock on the open file goes with its process: a number that stands in a file could by now be another's.
PlaceLock::Outcome PlaceLock::take()
{
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW;
    const int descriptor = ::open(d->fileName.constData(), flags, S_IRUSR | S_IWUSR);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) { // nor is one locked that could not be opened
        const bool taken = errno == EWOULDBLOCK;
        ::close(descriptor);
        return taken ? Outcome::Taken : Outcome::Impossible;
    }
    d->descriptor = descriptor;
    const QByteArray self = QByteArray::number(qint64(::getpid())).rightJustified(numberWidth);
    [[maybe_unused]] const ssize_t written // without it only the number is missing
        = ::write(descriptor, self.constData(), size_t(self.size()));
    return Outcome::Held;
}

void PlaceLock::giveBack()
{
    ::close(std::exchange(d->descriptor, noDescriptor));
}

qint64 PlaceLock::holder() const
{
    QFile file(QFile::decodeName(d->fileName));
    return file.open(QIODevice::ReadOnly) ? file.read(numberWidth).trimmed().toLongLong() : 0;
}
