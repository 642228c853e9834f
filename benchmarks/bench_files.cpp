#include "documents/csvexport.h"
#include "files/datafileloader.h"
#include "files/datafilepieces.h"
#include "files/disk/filesync.h"
#include "files/wholefile.h"
#include "series/seriesstore.h"
#include "floors.h"
#include "machinememory.h"
#include "naive/naivecsv.h"
#include "naive/naiverecordline.h"
#include "naive/naivestore.h"
#include "samplerecording.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <utility>

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t enoughToRead = std::size_t(384)
    << 20; // bytes, more than an opening or a processor's caches hold

// A data file of `count` records, written once and kept until the program ends.
QString sampleFile(int count)
{
    static const QTemporaryDir folder;
    const QString name = folder.filePath(QString::number(count) + QLatin1String(".acp"));
    if (!QFile::exists(name)) {
        const RecordList records = sampleRecording(count);
        DataFilePieces lines(records);
        writeWholeFile(name, lines);
    }
    return name;
}

QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void readNaive(benchmark::State &state)
{
    const QString name = sampleFile(int(state.range(0)));
    takeMemoryFromHost(enoughToRead);
    for (auto _ : state) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            state.SkipWithError("no file");
        QTextStream stream(&file);
        QVector<Varnel3Data> records;
        while (!stream.atEnd()) {
            Varnel3Data record;
            if (naiveParse(stream.readLine(), &record))
                records.append(record);
        }
        NaiveStore store;
        store.load(std::move(records));
        if (store.resistance().size() != state.range(0))
            state.SkipWithError("records are missing");
    }
}

void readHouse(benchmark::State &state)
{
    const QString name = sampleFile(int(state.range(0)));
    takeMemoryFromHost(enoughToRead);
    for (auto _ : state) {
        DataFileLoader loader(name);
        loader.readAll();
        SeriesStore store;
        store.load(loader.takeRecords());
        if (store.size() != state.range(0))
            state.SkipWithError("records are missing");
    }
}

// The bytes of the file, in memory.
void readFloor(benchmark::State &state)
{
    const QByteArray bytes = contents(sampleFile(int(state.range(0))));
    takeMemoryFromHost(enoughToRead);
    for (auto _ : state)
        passOver(bytes);
}

// A file is opened once, not again and again: nothing is found of what another opening left in the
// processor's caches or among the memory that the process has given back to itself.
void readOnce(benchmark::State &state)
{
    const QString name = sampleFile(int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        takeMemoryFromHost(enoughToRead);
        state.ResumeTiming();
        DataFileLoader loader(name);
        loader.readAll();
        SeriesStore store;
        store.load(loader.takeRecords());
        if (store.size() != state.range(0))
            state.SkipWithError("records are missing");
    }
}

void saveNaive(benchmark::State &state, bool synced)
{
    const QTemporaryDir folder;
    const RecordList records = sampleRecording(sampleCount);
    for (auto _ : state) {
        QFile file(folder.filePath(QStringLiteral("naive.acp")));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
            state.SkipWithError("no file");
        QTextStream stream(&file);
        for (int i = 0; i < records.size(); ++i)
            stream << naiveRecordLine(records[i]) << '\n';
        stream.flush();
        if (synced && !(file.flush() && syncToDisk(file.handle())))
            state.SkipWithError("not synced");
    }
}

// Bytes that are ready are written to a file and nothing more.
void writeFloor(benchmark::State &state, const QByteArray &bytes, bool synced)
{
    const QTemporaryDir folder;
    for (auto _ : state) {
        QFile file(folder.filePath(QStringLiteral("floor")));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            state.SkipWithError("not written");
        if (synced && !(file.flush() && syncToDisk(file.handle())))
            state.SkipWithError("not synced");
    }
}

void saveFloor(benchmark::State &state, bool synced)
{
    writeFloor(state, contents(sampleFile(sampleCount)), synced);
}

// With all that makes it safe: a temporary file, synced, that replaces the old one.
void saveHouse(benchmark::State &state)
{
    const QTemporaryDir folder;
    const RecordList records = sampleRecording(sampleCount);
    for (auto _ : state) {
        DataFilePieces lines(records);
        if (!writeWholeFile(folder.filePath(QStringLiteral("house.acp")), lines).written)
            state.SkipWithError("not saved");
    }
}

// A recording as it was read, with the charge of its cells.
const SeriesStore &readRecording()
{
    static const SeriesStore store = [] {
        DataFileLoader loader(sampleFile(sampleCount));
        loader.readAll();
        SeriesStore read;
        read.load(loader.takeRecords());
        return read;
    }();
    return store;
}

void exportNaive(benchmark::State &state)
{
    const QTemporaryDir folder;
    const SeriesStore &store = readRecording();
    for (auto _ : state) {
        QFile file(folder.filePath(QStringLiteral("naive.csv")));
        if (!file.open(QIODevice::WriteOnly))
            state.SkipWithError("no file");
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        naiveCsv(&stream, store);
    }
}

void exportHouse(benchmark::State &state)
{
    const QTemporaryDir folder;
    const SeriesStore &store = readRecording();
    for (auto _ : state) {
        CsvRows rows(store);
        if (!writeWholeFile(folder.filePath(QStringLiteral("house.csv")), rows).written)
            state.SkipWithError("not written");
    }
}

void exportFloor(benchmark::State &state)
{
    const QTemporaryDir folder;
    CsvRows rows(readRecording());
    const QString name = folder.filePath(QStringLiteral("house.csv"));
    if (!writeWholeFile(name, rows).written)
        state.SkipWithError("not written");
    writeFloor(state, contents(name), true);
}

} // namespace

BENCHMARK(readNaive)->Name("read file/naive")->Arg(sampleCount)->Iterations(1);
BENCHMARK(readHouse)->Name("read file/house")->Arg(32768)->Arg(sampleCount);
BENCHMARK(readFloor)->Name("read file/floor")->Arg(sampleCount);
BENCHMARK(readOnce)->Name("read file/once")->Arg(32768)->Arg(sampleCount);
BENCHMARK(exportNaive)->Name("export table/naive")->Iterations(1);
BENCHMARK(exportHouse)->Name("export table/house");
BENCHMARK(exportFloor)->Name("export table/floor");
BENCHMARK_CAPTURE(saveNaive, plain, false)->Name("save file/naive")->Iterations(1);
BENCHMARK_CAPTURE(saveNaive, synced, true)->Name("save file/naive synced")->Iterations(1);
BENCHMARK(saveHouse)->Name("save file/house");
BENCHMARK_CAPTURE(saveFloor, plain, false)->Name("save file/floor");
BENCHMARK_CAPTURE(saveFloor, synced, true)->Name("save file/floor synced");
