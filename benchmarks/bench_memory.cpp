#include "files/datafileloader.h"
#include "files/datafilepieces.h"
#include "files/wholefile.h"
#include "graph/mdigraphchild.h"
#include "machinememory.h"
#include "overlay/overlaypainter.h"
#include "quietshell.h"
#include "samplerecording.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

// Counters in MB, for a record in bytes, of what the process alone holds; `longest` in ms. report.py runs
// each in a process of its own.
namespace {

constexpr int windows = 8;
constexpr int million = 1000000;
constexpr int day = 86400; // records
constexpr std::size_t enoughForMillion = std::size_t(1024) << 20; // bytes

double megabytesHeld()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("RssAnon:"))
            return line.simplified().split(' ').value(1).toDouble() * 1024 / 1e6;
    }
    return 0;
}

// Onto the one picture, which is not the windows'.
void draw(MdiGraphChild *window)
{
    static QImage image(1000, 600, QImage::Format_RGB32);
    window->resize(image.size());
    window->render(&image);
}

std::unique_ptr<MdiGraphChild> liveWindow(QuietShell *shell)
{
    auto window = std::make_unique<MdiGraphChild>(shell);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->addRecord(sampleRecord(0));
    draw(window.get());
    return window;
}

// Eight windows on devices that have sent a line each.
void eightWindows(benchmark::State &state)
{
    QuietShell shell;
    liveWindow(&shell); // fonts and the like
    std::vector<std::unique_ptr<MdiGraphChild>> open;
    const double before = megabytesHeld();
    for (auto _ : state) {
        for (int i = 0; i < windows; ++i)
            open.push_back(liveWindow(&shell));
    }
    state.counters["held"] = megabytesHeld() - before;
}

double processorMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
}

// A recording that grows to a million records, and what one of them takes with all its series.
void recordsAppended(benchmark::State &state)
{
    const auto cells = int(state.range(0));
    takeMemoryFromHost(enoughForMillion);
    const double before = megabytesHeld();
    SeriesStore store;
    double longest = 0.0;
    for (auto _ : state) {
        for (int i = 0; i < million; ++i) {
            const Varnel3Data record = sampleRecord(i, cells);
            const double begin = processorMilliseconds();
            store.append(record);
            longest = std::max(longest, processorMilliseconds() - begin);
        }
    }
    state.counters["held"] = (megabytesHeld() - before) * 1e6 / million;
    state.counters["longest"] = longest;
}

// Opened as from the file dialog, drawn, closed.
void millionRecords(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("million.acp"));
    {
        const RecordList records = sampleRecording(million);
        DataFilePieces lines(records);
        if (!writeWholeFile(name, lines).written)
            state.SkipWithError("not saved");
    }
    QuietShell shell;
    liveWindow(&shell);
    takeMemoryFromHost(enoughForMillion);
    const double before = megabytesHeld();
    for (auto _ : state) {
        DataFileLoader loader(name);
        MdiGraphChild window(&shell);
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        loader.readAll();
        SeriesStore store;
        store.load(loader.takeRecords());
        window.load(std::move(store), name);
        draw(&window);
        if (window.store().size() != million)
            state.SkipWithError("records are missing");
        state.counters["held"] = megabytesHeld() - before;
        window.close();
    }
    state.counters["left"] = megabytesHeld() - before;
}

// Recordings of a day each, a record a second, over each other: read one after the other as the window has
// it, and drawn. It is one file, since the system has all of them at hand anyhow.
void twentyDays(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("day.acp"));
    {
        const RecordList records = sampleRecording(day);
        DataFilePieces lines(records);
        if (!writeWholeFile(name, lines).written)
            state.SkipWithError("not saved");
    }
    QImage image(1000, 600, QImage::Format_RGB32);
    takeMemoryFromHost(enoughForMillion);
    const double before = megabytesHeld();
    double most = 0.0;
    for (auto _ : state) {
        OverlayRequest request;
        request.size = image.size();
        for (int i = 0; i < OverlayRequest::mostEntries; ++i) {
            DataFileLoader loader(name);
            loader.readAll();
            SeriesStore store;
            store.load(loader.takeRecords());
            request.entries.append({std::make_shared<const OverlayCourse>(store), name, i * 600.0});
            most = std::max(most, megabytesHeld() - before);
        }
        QPainter painter(&image);
        OverlayPainter().paint(&painter, request);
    }
    state.counters["held"] = most;
}

} // namespace

BENCHMARK(eightWindows)->Name("memory/eight windows")->Iterations(1);
BENCHMARK(recordsAppended)->Name("memory/records")->Arg(16)->Arg(6)->Arg(0)->Iterations(1);
BENCHMARK(millionRecords)->Name("memory/a million records")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(twentyDays)->Name("memory/twenty days")->Iterations(1)->Unit(benchmark::kMillisecond);
