#include "protocol/recordline.h"
#include "floors.h"
#include "naive/naiverecordline.h"
#include "samplerecording.h"

#include <QStringList>

#include <benchmark/benchmark.h>

namespace {

constexpr int count = 4096;

QStringList lines()
{
    return QString::fromLatin1(sampleLines(count)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void parseNaive(benchmark::State &state)
{
    const QStringList texts = lines();
    int good = 0;
    for (auto _ : state) {
        Varnel3Data record;
        for (const QString &text : texts)
            good += naiveParse(text, &record) ? 1 : 0;
    }
    if (good != count * state.iterations())
        state.SkipWithError("lines do not parse");
    state.SetItemsProcessed(state.iterations() * count);
}

void parseHouse(benchmark::State &state)
{
    const QStringList texts = lines();
    int good = 0;
    for (auto _ : state) {
        Varnel3Data record;
        for (const QString &text : texts)
            good += record.parseLine(text) ? 1 : 0;
    }
    if (good != count * state.iterations())
        state.SkipWithError("lines do not parse");
    state.SetItemsProcessed(state.iterations() * count);
}

void parseFloor(benchmark::State &state)
{
    const QStringList texts = lines();
    for (auto _ : state) {
        for (const QString &text : texts)
            passOver(text.constData(), std::size_t(text.size()) * sizeof(QChar));
    }
}

void formatNaive(benchmark::State &state)
{
    const RecordList records = sampleRecording(count);
    for (auto _ : state) {
        for (int i = 0; i < count; ++i)
            benchmark::DoNotOptimize(naiveRecordLine(records[i]));
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void formatHouse(benchmark::State &state)
{
    const RecordList records = sampleRecording(count);
    if (naiveRecordLine(records[count - 1]) != records[count - 1].toRecordLine())
        state.SkipWithError("the two sides write different lines");
    char line[maxRecordLineLength];
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            writeRecordLine(line, records[i]);
            benchmark::DoNotOptimize(line);
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}

// The lines, written beforehand, are copied.
void formatFloor(benchmark::State &state)
{
    const QByteArray written = sampleLines(count);
    QByteArray copy(written.size(), '\0');
    for (auto _ : state) {
        std::memcpy(copy.data(), written.constData(), std::size_t(written.size()));
        benchmark::ClobberMemory();
    }
}

} // namespace

BENCHMARK(parseNaive)->Name("parse line/naive")->Unit(benchmark::kMillisecond);
BENCHMARK(parseHouse)->Name("parse line/house")->Unit(benchmark::kMillisecond);
BENCHMARK(parseFloor)->Name("parse line/floor")->Unit(benchmark::kMillisecond);
BENCHMARK(formatNaive)->Name("format line/naive")->Unit(benchmark::kMillisecond);
BENCHMARK(formatHouse)->Name("format line/house")->Unit(benchmark::kMillisecond);
BENCHMARK(formatFloor)->Name("format line/floor")->Unit(benchmark::kMillisecond);
