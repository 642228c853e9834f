#pragma once

#include "data/records/largeblock.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstring>

#include <malloc.h>

/// Has the machine hold at least `bytes` of free memory that it can give at once, and fills the processor's
/// caches with other things. A virtual machine may have handed free memory back to its host, which then takes
/// tens of milliseconds for what is a matter of microseconds elsewhere and no doing of the program. Call it
/// while nothing is timed.
inline void takeMemoryFromHost(std::size_t bytes)
{
    const LargeBlock memory(bytes);
    std::memset(memory.data(), 1, bytes);
    benchmark::ClobberMemory();
    ::malloc_trim(0);
}
