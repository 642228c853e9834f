#include "files/journalfile.h"

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

// Where a file system knows no locks, every file counts as being written.
bool lockFails(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) != 0;
}

} // namespace

// Between creation and lock another program may take the empty file for a left-over and remove it; then the
// name is gone and the file is created anew.
CreatedFile createJournalFile(const QString &fileName)
{
    const QByteArray name = QFile::encodeName(fileName);
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int descriptor
            = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
        if (descriptor < 0)
            return {-1, errno == EEXIST, qt_error_string(errno)};
        ::flock(descriptor, LOCK_EX);
        struct stat status { };
        if (::fstat(descriptor, &status) == 0 && status.st_nlink > 0)
            return {descriptor, false, QString()};
        ::close(descriptor);
    }
    return {-1, false, qt_error_string(ENOENT)};
}

int appendBytes(int descriptor, const char *bytes, int length)
{
    ssize_t written = 0;
    do {
        written = ::write(descriptor, bytes, size_t(length));
    } while (written < 0 && errno == EINTR);
    return int(written);
}

bool cutFile(int descriptor, qint64 size)
{
    return ::ftruncate(descriptor, size) == 0;
}

void closeFile(int descriptor)
{
    ::close(descriptor);
}

bool isBeingWritten(const QString &fileName)
{
    const int descriptor = openQuietly(fileName);
    if (descriptor < 0)
        return false;
    const bool written = lockFails(descriptor);
    ::close(descriptor);
    return written;
}

bool removeUnlessWritten(const QString &fileName)
{
    const int descriptor = openQuietly(fileName);
    if (descriptor < 0)
        return false;
    const bool removed = !lockFails(descriptor) && ::unlink(QFile::encodeName(fileName).constData()) == 0;
    ::close(descriptor);
    return removed;
}
