#include "files/disk/lockedfile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int openQuietly(const QString &fileName)
{
    return ::open(QFile::encodeName(fileName).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

// Where a file system knows no locks, every file counts as being written; so does what could not be opened.
bool lockFails(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) != 0;
}

// The name may lead to another file by the time that the lock is had: one that is being written.
template <typename Action>
bool unlessWritten(const QString &fileName, Action action)
{
    const int descriptor = openQuietly(fileName);
    const bool done = !lockFails(descriptor) && isStillNamed(descriptor, fileName) && action(fileName);
    ::close(descriptor);
    return done;
}

} // namespace

// Between creation and lock another program may take the empty file for a left-over and remove it; then the
// name is gone and the file is created anew, as often as somebody does that.
CreatedFile createLockedFile(const QString &fileName)
{
    const QByteArray name = QFile::encodeName(fileName);
    for (;;) {
        const int descriptor
            = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
        if (descriptor == noDescriptor)
            return {noDescriptor, errno == EEXIST, qt_error_string(errno)};
        ::flock(descriptor, LOCK_EX);
        if (isStillNamed(descriptor, fileName))
            return {descriptor, false, QString()};
        ::close(descriptor);
    }
}

int appendBytes(int descriptor, const char *bytes, int length)
{
    return int(TEMP_FAILURE_RETRY(::write(descriptor, bytes, size_t(length))));
}

bool cutFile(int descriptor, qint64 size)
{
    return ::ftruncate(descriptor, size) == 0;
}

int readBytes(int descriptor, qint64 offset, char *bytes, int length)
{
    return int(TEMP_FAILURE_RETRY(::pread(descriptor, bytes, size_t(length), offset)));
}

// A name that can't be looked at is not known to be gone.
bool isStillNamed(int descriptor, const QString &fileName)
{
    struct stat open { };
    struct stat named { };
    if (::fstat(descriptor, &open) != 0)
        return true;
    if (::stat(QFile::encodeName(fileName).constData(), &named) != 0)
        return errno != ENOENT && errno != ENOTDIR;
    return named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

void closeFile(int descriptor)
{
    ::close(descriptor);
}

bool isBeingWritten(const QString &fileName)
{
    const int descriptor = openQuietly(fileName);
    if (descriptor == noDescriptor)
        return false;
    const bool written = lockFails(descriptor);
    ::close(descriptor);
    return written;
}

bool removeUnlessWritten(const QString &fileName)
{
    return unlessWritten(fileName, [](const QString &name) { return QFile::remove(name); });
}

bool discardUnlessWritten(const QString &fileName)
{
    return unlessWritten(fileName, [](const QString &name) { return QFile::moveToTrash(name); });
}
