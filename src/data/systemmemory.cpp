#include "data/systemmemory.h"

#include <new>

namespace {

constexpr qint64 partKept = 16; // of all memory, one
constexpr qint64 mostKept = qint64(512) << 20;
constexpr qint64 mostKeptLive = qint64(64) << 20;

void demand(qint64 bytes, qint64 most)
{
    const SystemMemory memory = systemMemory();
    if (memory.available - bytes < qMin(memory.total / partKept, most))
        throw std::bad_alloc();
}

} // namespace

void demandMemory(qint64 bytes)
{
    demand(bytes, mostKept);
}

void demandLiveMemory(qint64 bytes)
{
    demand(bytes, mostKeptLive);
}
