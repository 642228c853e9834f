#include "files/disk/lockedfile.h"

#include "files/disk/nativename.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

// Opened without sharing writes, which is the lock: others may read, and neither write nor remove.
CreatedFile createLockedFile(const QString &fileName)
{
    int descriptor = -1;
    const errno_t error = _wsopen_s(&descriptor, nativeName(fileName).c_str(),
        _O_RDWR | _O_CREAT | _O_EXCL | _O_APPEND | _O_BINARY | _O_NOINHERIT, _SH_DENYWR,
        _S_IREAD | _S_IWRITE);
    if (error != 0)
        return {-1, error == EEXIST, qt_error_string()};
    return {descriptor, false, QString()};
}

int appendBytes(int descriptor, const char *bytes, int length)
{
    return _write(descriptor, bytes, unsigned(length));
}

bool cutFile(int descriptor, qint64 size)
{
    return _chsize_s(descriptor, size) == 0;
}

int readBytes(int descriptor, qint64 offset, char *bytes, int length)
{
    return _lseeki64(descriptor, offset, SEEK_SET) < 0 ? -1 : _read(descriptor, bytes, unsigned(length));
}

// The lock keeps the name, too.
bool isStillNamed(int /*descriptor*/, const QString & /*fileName*/)
{
    return true;
}

void closeFile(int descriptor)
{
    _close(descriptor);
}

bool isBeingWritten(const QString &fileName)
{
    int descriptor = -1;
    const errno_t error = _wsopen_s(&descriptor, nativeName(fileName).c_str(),
        _O_WRONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, _S_IWRITE);
    if (error == 0)
        _close(descriptor);
    return error == EACCES;
}

bool removeUnlessWritten(const QString &fileName)
{
    return !isBeingWritten(fileName) && QFile::remove(fileName);
}

bool discardUnlessWritten(const QString &fileName)
{
    return !isBeingWritten(fileName) && QFile::moveToTrash(fileName);
}
