#include "fuzzcheck.h"
#include "graph/seriesstore.h"
#include "link/devicelink.h"
#include "link/lineframer.h"
#include "link/readerhost.h"
#include "link/recordinglog.h"
#include "link/recordingdispatcher.h"
#include "link/recordingsink.h"

#include <QCoreApplication>
#include <QStringList>

#include <vector>

namespace {

/// A graph window without a window.
class Recorder : public RecordingSink {
public:
    void attachReader(DeviceLink *) override { live = true; }
    void setFileName(const QString &) override { }
    void addRecord(const Varnel3Data &record) override
    {
        check(live, "records go to live recordings");
        store.append(record);
        check(store.series(SeriesStore::Time).size() == store.size(), "a point for each record");
    }
    void applyResistanceLine(const QString &line) override { store.applyResistanceLine(line); }
    void finishRecording() override { live = false; }

    SeriesStore store;
    bool live = false;
};

class Port : public DeviceLink {
public:
    void sendCommand(const QString &text) override
    {
        check(text.endsWith(QLatin1String("\r\n")), "commands end");
    }
    QString portName() const override { return QStringLiteral("COM1"); }
    bool isNewProcess() const override { return false; }
    void detachGraphChild(RecordingSink *) override { }
};

class Shell : public QObject, public ReaderHost {
public:
    RecordingSink *createRecording() override
    {
        for (const auto &recorder : recorders)
            check(!recorder->live, "one recording a port");
        recorders.push_back(std::make_unique<Recorder>());
        return recorders.back().get();
    }
    std::unique_ptr<RecordingLog> createRecordingLog(const QString &) override { return nullptr; }
    QString currentTimeText() const override { return QStringLiteral("05:42:13:15:11:26"); }
    QMap<QString, bool> &startTimeSent() override { return started; }
    QMap<QString, bool> &endTimeSent() override { return ended; }
    void showMessageStatusBar(const QString &, int) override { }
    void portFailed(const QString &, const QString &) override { }
    void portLost(const QString &) override { }
    void recordingUnwatched(const QString &) override { }
    QObject *processReceiver() override { return this; }

    std::vector<std::unique_ptr<Recorder>> recorders;
    QMap<QString, bool> started, ended;
};

QStringList linesOf(const QByteArray &bytes, int pieceSize)
{
    LineFramer framer;
    QStringList lines;
    QString line;
    for (int at = 0; at < bytes.size(); at += pieceSize) {
        framer.feed(bytes.mid(at, pieceSize));
        while (framer.next(&line))
            lines.append(line);
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

// The first byte says in what pieces the bytes arrive; they must not matter. Half of the ends are left to time.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 2)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    const QStringList lines = linesOf(bytes, bytes.size());
    check(linesOf(bytes, 1 + data[0] % 16) == lines, "pieces make no difference");

    Shell shell;
    Port port;
    RecordingDispatcher dispatcher(&port, &shell);
    for (const QString &line : lines) {
        if (line.size() < 10)
            continue;
        const bool ends = dispatcher.processLine(line);
        for (int seconds = line.size() % 32; data[0] > 128 && seconds > 0; --seconds)
            dispatcher.tick();
        if (ends && data[0] % 2 == 0)
            dispatcher.endProcess();
    }
    dispatcher.reset();
    QCoreApplication::removePostedEvents(nullptr);
    return 0;
}
