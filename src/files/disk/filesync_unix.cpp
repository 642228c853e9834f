#include "files/disk/filesync.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <iterator>
#include <unistd.h>

bool syncToDisk(int descriptor)
{
    constexpr int nothingToWaitFor[] = {EINVAL, ENOTSUP, EROFS};
    return TEMP_FAILURE_RETRY(::fsync(descriptor)) == 0
        || std::find(std::begin(nothingToWaitFor), std::end(nothingToWaitFor), errno)
        != std::end(nothingToWaitFor);
}

int openFolder(const QString &folder)
{
    return ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int duplicateDescriptor(int descriptor)
{
    return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
}

int openSpecialFile(const QString &fileName)
{
    const int flags = O_WRONLY | O_TRUNC | O_NOCTTY | O_CLOEXEC | O_NONBLOCK;
    const int descriptor = ::open(QFile::encodeName(fileName).constData(), flags);
    if (descriptor != noDescriptor)
        ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}
