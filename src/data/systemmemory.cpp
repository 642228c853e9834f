#include "data/systemmemory.h"

#include <new>

namespace {

constexpr qint64 partKept = 16; // of all memory, one
constexpr qint64 mostKept = qint64(512) << 20;

} // namespace

void demandMemory(qint64 bytes)
{
    const SystemMemory memory = systemMemory();
    if (memory.total > 0 && memory.available - bytes < qMin(memory.total / partKept, mostKept))
        throw std::bad_alloc();
}
