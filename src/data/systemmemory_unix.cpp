#include "data/systemmemory.h"

#include "data/memorygroups.h"

#include <QFile>

#include <cstdlib>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

namespace {

QByteArray contents(const char *name)
{
    QFile file(QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The figure behind `name`, in bytes. "MemTotal:        8123456 kB"
qint64 figure(const QByteArray &text, const char *name)
{
    const char *const found = std::strstr(text.constData(), name);
    return found != nullptr ? std::strtoll(found + std::strlen(name), nullptr, 10) * 1024
                            : SystemMemory::endless;
}

// Of this process; 0 where the system does not tell.
qint64 addressSpaceUsed()
{
    return std::strtoll(contents("/proc/self/statm").constData(), nullptr, 10) * ::sysconf(_SC_PAGESIZE);
}

} // namespace

SystemMemory systemMemory()
{
    const QByteArray text = contents("/proc/meminfo");
    SystemMemory memory = {figure(text, "MemTotal:"), figure(text, "MemAvailable:")};
    const QByteArray groups = contents("/proc/self/cgroup");
    narrowToGroups(&memory.total, &memory.available, groups, QStringLiteral("/sys/fs/cgroup"));
    rlimit limit{};
    if (::getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
        memory.total = qMin(memory.total, qint64(limit.rlim_cur));
        memory.available = qMin(memory.available, qint64(limit.rlim_cur) - addressSpaceUsed());
    }
    return memory;
}
