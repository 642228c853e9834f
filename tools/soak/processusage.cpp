#include "soak/processusage.h"

#include <QByteArray>
#include <QFile>

#include <sys/resource.h>

namespace soak {

namespace {

double seconds(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

} // namespace

double processorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

qint64 ownMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    qint64 kilobytes = 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("RssAnon:") || line.startsWith("RssShmem:"))
            kilobytes += line.simplified().split(' ').value(1).toLongLong();
    }
    return kilobytes * 1024;
}

} // namespace soak
