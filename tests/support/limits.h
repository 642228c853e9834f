#pragma once

#include <QFile>

#include <csignal>
#include <sys/resource.h>

/// No file of this process grows beyond `bytes` while it lives: a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
};

/// Memory that this process holds now; 0 where the system does not tell.
inline qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    return statm.open(QIODevice::ReadOnly) ? statm.readAll().split(' ').at(1).toLongLong() * 4096 : 0;
}
