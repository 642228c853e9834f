#include "fuzzcheck.h"
#include "graph/seriesstore.h"
#include "link/lineframer.h"
#include "link/recordingdispatcher.h"
#include "support/fakelink.h"
#include "support/quiethost.h"

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

class Port : public FakeLink {
public:
    void sendCommand(const QString &text) override
    {
        check(text.endsWith(QLatin1String("\r\n")), "commands end");
    }
};

class Shell : public QuietHost {
public:
    RecordingSink *createRecording() override
    {
        for (const auto &recorder : recorders)
            check(!recorder->live, "one recording a port");
        recorders.push_back(std::make_unique<Recorder>());
        return recorders.back().get();
    }

    std::vector<std::unique_ptr<Recorder>> recorders;
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
