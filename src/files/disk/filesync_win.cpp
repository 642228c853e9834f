#include "files/disk/filesync.h"

#include <QDir>
#include <QString>

#include <cerrno>
#include <fcntl.h>
#include <io.h>

bool syncToDisk(int descriptor)
{
    return _commit(descriptor) == 0 || errno == EBADF || errno == EINVAL;
}

// Renames are journalled by the file system here.
int openFolder(const QString &)
{
    return -1;
}

int duplicateDescriptor(int descriptor)
{
    return _dup(descriptor);
}

int openSpecialFile(const QString &fileName)
{
    const QString native = QDir::toNativeSeparators(fileName);
    return _wopen(reinterpret_cast<const wchar_t *>(native.utf16()), _O_WRONLY | _O_BINARY);
}
