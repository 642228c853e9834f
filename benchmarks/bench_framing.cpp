#include "link/lineframer.h"
#include "floors.h"
#include "naive/naiveframer.h"
#include "samplerecording.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int linesInAll = 32768;
constexpr int pieceSize = 4096; // as a fast port hands them over

QByteArray stream()
{
    return sampleLines(linesInAll).replace('\n', "\r\n");
}

void framingNaive(benchmark::State &state)
{
    const QByteArray bytes = stream();
    int lines = 0;
    for (auto _ : state) {
        NaiveFramer framer;
        for (int at = 0; at < bytes.size(); at += pieceSize)
            lines += framer.feed(bytes.mid(at, pieceSize)).size();
    }
    if (lines != linesInAll * state.iterations())
        state.SkipWithError("lines are missing");
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void framingHouse(benchmark::State &state)
{
    const QByteArray bytes = stream();
    int lines = 0;
    for (auto _ : state) {
        LineFramer framer;
        QByteArray line;
        for (int at = 0; at < bytes.size(); at += pieceSize) {
            framer.feed(bytes.mid(at, pieceSize));
            while (framer.next(&line))
                ++lines;
        }
    }
    if (lines != linesInAll * state.iterations())
        state.SkipWithError("lines are missing");
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void framingFloor(benchmark::State &state)
{
    const QByteArray bytes = stream();
    for (auto _ : state)
        passOver(bytes);
}

} // namespace

BENCHMARK(framingNaive)->Name("framing/naive")->Unit(benchmark::kMillisecond);
BENCHMARK(framingHouse)->Name("framing/house")->Unit(benchmark::kMillisecond);
BENCHMARK(framingFloor)->Name("framing/floor")->Unit(benchmark::kMillisecond);
