#include "ports/portobstacle.h"

#include "ports/portinfo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 mostLockBytes = 4096; // of a file that somebody else has written

/// Who a lock file says has made it.
struct Lock {
    qint64 process = 0;
    QString program; // empty in files of programs that are not made with the same library as this one
    QString owner;
};

// The folders in which QSerialPort looks, in its order; it takes the first that has or can get the file.
const char *const lockFolders[] = {"/var/lock", "/etc/locks", "/var/spool/locks", "/var/spool/uucp", "/tmp",
    "/var/tmp", "/var/lock/lockdev", "/run/lock"};

// Empty where it can't be made. A port that has gone is tried under its name.
QString lockFileOf(const PortInfo &port)
{
    const QLatin1String devices("/dev/");
    QString name = port.location.isEmpty() ? port.name : port.location;
    if (name.startsWith(devices))
        name.remove(0, devices.size());
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    for (const char *folder : lockFolders) {
        const QFileInfo info(QString::fromLatin1(folder));
        const QString file = info.filePath() + QLatin1String("/LCK..") + name;
        if (info.isReadable() && (QFile::exists(file) || info.isWritable()))
            return file;
    }
    return QString();
}

QString userName(uid_t id)
{
    const passwd *user = getpwuid(id);
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(id);
}

PortObstacle::Thing thingOf(mode_t mode)
{
    if (S_ISLNK(mode))
        return PortObstacle::Link;
    if (S_ISDIR(mode))
        return PortObstacle::Folder;
    if (S_ISSOCK(mode))
        return PortObstacle::Socket;
    return S_ISFIFO(mode) ? PortObstacle::Pipe : PortObstacle::Device;
}

// In a folder where everybody may put something under that name. False where it can't be read.
bool readLock(int file, Lock *lock)
{
    struct stat node;
    if (fstat(file, &node) != 0 || !S_ISREG(node.st_mode))
        return false;
    QFile text;
    text.open(file, QIODevice::ReadOnly); // and leaves it open
    const QList<QByteArray> lines = text.read(mostLockBytes).split('\n');
    lock->process = lines.first().trimmed().split(' ').first().toLongLong();
    lock->program = QFile::decodeName(lines.value(1)).simplified();
    lock->owner = userName(node.st_uid);
    return true;
}

QString procFolder(qint64 process)
{
    return QStringLiteral("/proc/%1").arg(process);
}

QString commandOf(qint64 process)
{
    QFile file(procFolder(process) + QLatin1String("/comm"));
    return file.open(QIODevice::ReadOnly) ? QFile::decodeName(file.readAll()).simplified() : QString();
}

// `program` is what the lock says, which may name a process that can't be seen from here.
PortObstacle busyWith(qint64 process, const QString &program = QString())
{
    PortObstacle obstacle;
    obstacle.program = program.isEmpty() ? commandOf(process) : program;
    if (obstacle.program.isEmpty())
        return obstacle;
    obstacle.process = process;
    struct stat node;
    if (stat(QFile::encodeName(procFolder(process)).constData(), &node) == 0)
        obstacle.user = userName(node.st_uid);
    return obstacle;
}

// The process number alone does not tell: another program may have it by now, or the process may be in a
// container of its own. Who names a program in the second line keeps the file locked for as long as the port
// is open.
bool isHeld(int file, const Lock &lock)
{
    if (!lock.program.isEmpty())
        return flock(file, LOCK_SH | LOCK_NB) != 0; // let go with the file
    return lock.process > 0 && (kill(pid_t(lock.process), 0) == 0 || errno == EPERM);
}

PortObstacle leftOver(const QString &path, const Lock &lock)
{
    PortObstacle obstacle;
    obstacle.kind = PortObstacle::LeftOverLock;
    obstacle.file = path;
    obstacle.program = lock.program;
    obstacle.process = lock.process;
    obstacle.user = lock.owner;
    return obstacle;
}

PortObstacle ownPort(const PortInfo &port)
{
    PortObstacle obstacle;
    obstacle.kind = PortObstacle::OwnPort;
    const QVector<PortInfo> ports = listPorts();
    for (const PortInfo &other : ports) {
        const bool isLink = !other.location.endsWith(QLatin1Char('/') + other.name);
        if (isLink && other.location == port.location && other.name != port.name)
            obstacle.names.append(other.name);
    }
    return obstacle;
}

bool hasOpen(const QString &process, const QString &location)
{
    const QDir folder(QStringLiteral("/proc/%1/fd").arg(process));
    const QStringList files = folder.entryList(QDir::Files | QDir::System);
    return std::any_of(files.begin(), files.end(),
        [&](const QString &file) { return QFile::symLinkTarget(folder.filePath(file)) == location; });
}

// This one does not. Programs of other users show what they have open to the superuser only.
PortObstacle busyWithWhoHasOpen(const QString &location)
{
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &process : processes) {
        if (hasOpen(process, location))
            return busyWith(process.toLongLong());
    }
    return {};
}

PortObstacle noLockFolder()
{
    PortObstacle obstacle;
    obstacle.kind = PortObstacle::NoLockFolder;
    obstacle.file = QString::fromLatin1(lockFolders[0]);
    return obstacle;
}

// A lock of this process does not tell that it has the port: an attempt that failed keeps its own for as long
// as the object that made it lives.
PortObstacle obstacleByLock(const PortInfo &port)
{
    const QString path = lockFileOf(port);
    if (path.isEmpty())
        return noLockFolder();
    // What can't be opened can't be read, either, and is closed without effect.
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    Lock lock;
    const bool known = readLock(file, &lock);
    const bool held = !known || isHeld(file, lock);
    close(file);
    if (!held)
        return leftOver(path, lock);
    if (!known || lock.process == getpid())
        return hasOpen(QStringLiteral("self"), port.location) ? ownPort(port)
                                                              : busyWithWhoHasOpen(port.location);
    return busyWith(lock.process, lock.program);
}

bool lacksAccess(const PortInfo &port, QString *group)
{
    const QByteArray path = QFile::encodeName(port.location);
    if (path.isEmpty() || faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) == 0)
        return false;
    struct stat node;
    if (stat(path.constData(), &node) != 0 || !S_ISCHR(node.st_mode))
        return false;
    // Nobody is to be told to join the superuser's group, or one whose members may not use the port either.
    constexpr mode_t groupAccess = S_IRGRP | S_IWGRP;
    const struct group *owner = getgrgid(node.st_gid);
    if (owner && node.st_gid != 0 && (node.st_mode & groupAccess) == groupAccess)
        *group = QString::fromLocal8Bit(owner->gr_name);
    return true;
}

} // namespace

// A link is not followed: it may lead to a pipe or an endless device, and nobody makes a lock of one. What is
// put there between this look and the opening gets through.
std::optional<PortObstacle> obstacleToTrying(const PortInfo &port)
{
    const QString path = lockFileOf(port);
    struct stat node;
    if (path.isEmpty() || lstat(QFile::encodeName(path).constData(), &node) != 0 || S_ISREG(node.st_mode))
        return std::nullopt;
    PortObstacle obstacle;
    obstacle.kind = PortObstacle::StrangeLock;
    obstacle.file = path;
    obstacle.thing = thingOf(node.st_mode);
    obstacle.user = userName(node.st_uid);
    return obstacle;
}

// Rights first: they are missing whatever the lock says.
PortObstacle obstacleTo(const PortInfo &port)
{
    PortObstacle obstacle;
    if (lacksAccess(port, &obstacle.group)) {
        obstacle.kind = PortObstacle::NoRights;
        return obstacle;
    }
    return port.location.isEmpty() ? obstacle : obstacleByLock(port);
}
