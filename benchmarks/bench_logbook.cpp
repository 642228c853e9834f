#include "files/datafilepieces.h"
#include "files/wholefile.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookfile.h"
#include "logbook/logbookreader.h"
#include "logbook/window/logbookwindow.h"
#include "samplerecording.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>

#include <benchmark/benchmark.h>

// report.py runs these once each.
namespace {

constexpr int rows = 10000;
constexpr int files = 1000;
constexpr int recordsInFile = 5000;
constexpr int noRecordings = 100000;
constexpr int mostLinks = 50000; // to one file, that its system allows

LogbookEntry sampleEntry(int index)
{
    LogbookEntry entry;
    LogbookRecording &recording = entry.recording;
    recording.id = index + 1;
    recording.file = QStringLiteral("/recordings/2026-01-01_00-00-00_COM%1_%2.acp").arg(index % 9).arg(index);
    recording.port = QStringLiteral("COM%1").arg(index % 9);
    recording.start = QDateTime::fromSecsSinceEpoch(1600000000 + qint64(index) * 7919 % 100000000);
    recording.note = QStringLiteral("note %1").arg(index);
    recording.figures.records = recordsInFile;
    recording.figures.cellType = index % 8;
    recording.figures.curve = QByteArray(LogbookFigures::curvePoints, char(index));
    entry.stamp = {index, index};
    entry.beginning = QByteArray::number(index);
    return entry;
}

/// The longest that the event loop was not asked, ms.
class PauseWatch : public QTimer {
public:
    PauseWatch()
    {
        m_clock.start();
        callOnTimeout([this] { longest = qMax(longest, m_clock.restart()); });
        start(0);
    }
    qint64 longest = 0;

private:
    QElapsedTimer m_clock;
};

void openRows(benchmark::State &state)
{
    const QTemporaryDir folder;
    {
        LogbookFile file(folder.path());
        file.open();
        LogbookBatch batch;
        for (int i = 0; i < rows; ++i)
            batch.assigned.append(sampleEntry(i));
        batch.read = batch.assigned;
        QString reason;
        file.write({batch}, &reason);
    }
    for (auto _ : state) {
        Logbook logbook;
        QEventLoop loop;
        QObject::connect(&logbook, SIGNAL(opened()), &loop, SLOT(quit()));
        logbook.open(folder.path());
        loop.exec();
        if (logbook.size() != rows)
            state.SkipWithError("rows are missing");
    }
}

void filterRows(benchmark::State &state)
{
    Logbook logbook;
    for (int i = 0; i < rows; ++i)
        logbook.take(sampleEntry(i));
    LogbookFilter filter;
    filter.text = QStringLiteral("com3 9");
    for (auto _ : state)
        benchmark::DoNotOptimize(logbook.recordings(filter).size());
}

/// A logbook of six packs with its window.
struct FullWindow {
    FullWindow()
        : editor(&logbook)
        , reader(&logbook, QString())
    {
        for (int i = 0; i < rows; ++i)
            logbook.take(sampleEntry(i));
        const QVector<qint64> ids = logbook.recordings();
        for (int i = 0; i < packs; ++i) {
            LogbookPack pack;
            pack.name = QString::number(i);
            pack.capacity = 5000;
            editor.assign(ids.mid(i * rows / packs, rows / packs), editor.addPack(pack));
        }
    }
    void show()
    {
        window = std::make_unique<LogbookWindow>(
            LogbookCommands::Parts{&logbook, &editor, &reader}, &state, QString());
        window->readState(VarnelSettings());
        window->show();
        QCoreApplication::processEvents(); // painted
    }

    static constexpr int packs = 6;
    Logbook logbook;
    LogbookEditor editor;
    LogbookReader reader;
    ViewState state;
    std::unique_ptr<LogbookWindow> window;
};

void showWindow(benchmark::State &state)
{
    FullWindow full;
    for (auto _ : state)
        full.show();
}

void typeFilter(benchmark::State &state)
{
    FullWindow full;
    full.show();
    auto *text = full.window->findChild<QLineEdit *>(QStringLiteral("filterText"));
    const QString typed = QStringLiteral("com3 9");
    int letters = 0;
    for (auto _ : state) {
        text->setText(typed.left(letters = letters % typed.size() + 1));
        QCoreApplication::processEvents();
    }
}

void readUntilRest(benchmark::State &state, const QString &folder, int expected)
{
    for (auto _ : state) {
        Logbook logbook;
        LogbookReader reader(&logbook, folder + QStringLiteral("/recordings"));
        QEventLoop loop;
        QObject::connect(&reader, SIGNAL(finished()), &loop, SLOT(quit()));
        const PauseWatch watch;
        logbook.open(folder);
        loop.exec();
        state.counters["held"] = double(watch.longest);
        if (logbook.size() != expected)
            state.SkipWithError("recordings are missing");
    }
}

/// `count` names for few files with this content.
void makeFiles(const QTemporaryDir &folder, int count, const std::function<void(const QString &)> &write)
{
    QDir(folder.path()).mkdir(QStringLiteral("recordings"));
    QString first;
    for (int i = 0; i < count; ++i) {
        const QString name = folder.filePath(QStringLiteral("recordings/%1.acp").arg(i));
        if (i % mostLinks == 0)
            write(first = name);
        else
            std::filesystem::create_hard_link(first.toStdString(), name.toStdString());
    }
}

void readFiles(benchmark::State &state)
{
    const QTemporaryDir folder;
    const RecordList records = sampleRecording(recordsInFile, 6);
    makeFiles(folder, files, [&records](const QString &name) {
        DataFilePieces lines(records);
        writeWholeFile(name, lines);
    });
    readUntilRest(state, folder.path(), files);
}

void readNone(benchmark::State &state)
{
    const QTemporaryDir folder;
    makeFiles(folder, noRecordings, [](const QString &name) {
        QFile file(name);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray(10000, '#'));
    });
    readUntilRest(state, folder.path(), 0);
}

} // namespace

// Of the time, what passes for a user: threads work, too. `held` is the longest pause in ms.
BENCHMARK(openRows)->Name("logbook/open")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(showWindow)->Name("logbook/window")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(typeFilter)->Name("logbook/typed")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(12);
BENCHMARK(filterRows)->Name("logbook/filter")->Unit(benchmark::kMillisecond);
BENCHMARK(readFiles)->Name("logbook/read")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(readNone)->Name("logbook/none")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
