#pragma once

#include <QFile>

#include <csignal>
#include <malloc.h>
#include <sys/resource.h>

/// What this process uses of `Resource`, one of RLIMIT_..., stays within `bytes` while it lives.
template <int Resource>
class ProcessLimit {
public:
    explicit ProcessLimit(rlim_t bytes)
    {
        ::getrlimit(Resource, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        ::setrlimit(Resource, &small);
    }
    ~ProcessLimit() { ::setrlimit(Resource, &m_before); }
    Q_DISABLE_COPY(ProcessLimit)

private:
    rlimit m_before{};
};

/// No file of this process grows beyond `bytes` while it lives: a disk that is full.
class FileSizeLimit : public ProcessLimit<RLIMIT_FSIZE> {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : ProcessLimit((std::signal(SIGXFSZ, SIG_IGN), bytes)) // first: other threads write meanwhile
    {
    }
};

/// A figure of /proc/self/statm in bytes; 0 where the system does not tell.
inline qint64 ownBytes(int figure)
{
    QFile statm("/proc/self/statm");
    return statm.open(QIODevice::ReadOnly) ? statm.readAll().split(' ').at(figure).toLongLong() * 4096 : 0;
}

/// The process gets about `bytes` more of address space, and what demandMemory() keeps back of so little.
class AddressSpaceLimit : public ProcessLimit<RLIMIT_AS> {
public:
    explicit AddressSpaceLimit(qint64 bytes)
        : ProcessLimit(
            rlim_t(ownBytes(0) + qMin(bytes + (qint64(512) << 20), (bytes * 16 + ownBytes(0)) / 15)))
    {
        ::mallopt(M_ARENA_MAX, 1); // a new thread would reserve 64 MB of it
    }
};

/// The process gets `bytes` more of memory to write to, and learns that
/// there is no more only when it is refused.
class WritableMemoryLimit : public ProcessLimit<RLIMIT_DATA> {
public:
    explicit WritableMemoryLimit(qint64 bytes)
        : ProcessLimit(rlim_t(ownBytes(5) + bytes))
    {
    }
};
