#include "series/seriesstore.h"
#include "machinememory.h"
#include "naive/naivestore.h"
#include "samplerecording.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int differentRecords = 1024;
constexpr std::size_t enoughToAppend = std::size_t(384)
    << 20; // bytes, more than the records that are timed take

// Records made beforehand: making them costs more than what is measured.
RecordList nextRecords(int from)
{
    RecordList records;
    for (int i = 0; i < differentRecords; ++i)
        records.append(sampleRecord(from + i));
    return records;
}

void appendNaive(benchmark::State &state)
{
    const auto length = int(state.range(0));
    NaiveStore store;
    for (int i = 0; i < length; ++i)
        store.appendQuickly(sampleRecord(i));
    const RecordList records = nextRecords(length);
    int next = 0;
    for (auto _ : state)
        store.append(records[next++ % differentRecords]);
    benchmark::DoNotOptimize(store.resistance().last());
}

// Every record takes memory that nothing has used before, as in a recording that grows for days. What was
// freed by other benchmarks would be found in use already, in half the time, by a short recording and not by
// a long one.
void appendHouse(benchmark::State &state)
{
    const auto length = int(state.range(0));
    SeriesStore store;
    for (int i = 0; i < length; ++i)
        store.append(sampleRecord(i));
    const RecordList records = nextRecords(length);
    takeMemoryFromHost(enoughToAppend);
    int next = 0;
    for (auto _ : state)
        store.append(records[next++ % differentRecords]);
    benchmark::DoNotOptimize(store.revision());
}

// What an append can't do without.
void appendCopyOnly(benchmark::State &state)
{
    const RecordList records = nextRecords(0);
    RecordList copies;
    takeMemoryFromHost(enoughToAppend);
    int next = 0;
    for (auto _ : state)
        copies.append(records[next++ % differentRecords]);
    benchmark::DoNotOptimize(copies.size());
}

} // namespace

BENCHMARK(appendNaive)->Name("append/naive")->Arg(32768)->Arg(262144)->Iterations(100);
BENCHMARK(appendHouse)->Name("append/house")->Arg(32768)->Arg(262144)->Iterations(200000);
BENCHMARK(appendCopyOnly)->Name("append/copy")->Iterations(200000);
