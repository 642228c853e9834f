#include "protocol/recordline.h"
#include "files/datafileloader.h"
#include "journal/journallines.h"
#include "fuzzcheck.h"
#include "series/seriesstore.h"
#include "link/lineframer.h"
#include "link/linedispatcher.h"
#include "link/recordinglog.h"
#include "support/fakelink.h"
#include "support/fakeshell.h"
#include "support/records.h"

#include <QBuffer>
#include <QByteArrayList>
#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

/// A graph window without a window.
class Recorder : public RecordingWindow {
public:
    void attachReader(DeviceLink *) override { live = true; }
    void setPortName(const QString &) override { }
    void addRecord(const Varnel3Data &record) override
    {
        check(live, "records go to live recordings");
        store.append(record);
        check(store.series(SeriesStore::Time).size() == store.size(), "a point for each record");
    }
    void applyResistanceLine(const QByteArray &line) override { store.applyResistanceLine(line); }
    void finishRecording() override { live = false; }

    SeriesStore store;
    bool live = false;
};

/// A journal in memory, which is read as a data file when the recording ends.
class CheckedLog : public RecordingLog {
public:
    CheckedLog() = default;
    ~CheckedLog() override
    {
        check(m_lines.areWorthKeeping() == (m_records.size() >= 2),
            "a file of two records or more, and no other");
        if (m_records.size() >= 2)
            compare(read());
    }
    CheckedLog(const CheckedLog &) = delete;
    CheckedLog &operator=(const CheckedLog &) = delete;

    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        append(m_lines.ofRecord(line, record));
        m_records.append(record);
    }
    void addResistanceLine(const QByteArray &line) override
    {
        append(m_lines.ofResistances(line));
        check(m_records.last().parseResistanceLine(QLatin1String(line)), "only '!' lines");
    }

private:
    void append(const QByteArray &line)
    {
        check(!line.contains('\n'), "a line of a journal is one");
        m_text += line + '\n';
    }

    RecordList read() const
    {
        auto buffer = std::make_unique<QBuffer>();
        buffer->setData(m_text);
        check(buffer->open(QIODevice::ReadOnly), "a buffer opens");
        DataFileLoader loader(std::move(buffer), QStringLiteral("x.acp"));
        check(loader.readAll(), "a journal is a data file");
        return loader.takeRecords();
    }

    // A balancer tells no time: that of its records is their place.
    static bool same(const Varnel3Data &found, Varnel3Data record, int place)
    {
        if (record.device == Varnel3Data::Tandor)
            record.setTime(Varnel3Data::balancerPeriod * place);
        return found.toRecordLine() == record.toRecordLine()
            && found.resistanceValid == record.resistanceValid && found.resistanceSum == record.resistanceSum;
    }

    // Those that no line can say may be missing.
    void compare(const RecordList &found) const
    {
        int at = 0;
        for (int place = 0; place < m_records.size(); ++place) {
            if (at < found.size() && same(found[at], m_records[place], place))
                ++at;
            else
                check(!isRecordLineReadable(m_records[place]),
                    "a record comes back from its journal as it was");
        }
        check(at == found.size(), "a journal has nothing that was not recorded");
    }

    RecordList m_records;
    QByteArray m_text;
    JournalLines m_lines;
};

class Port : public FakeLink {
public:
    void sendCommand(const QString &text) override
    {
        check(text.endsWith(QLatin1String("\r\n")), "commands end");
    }
};

class Shell : public FakeShell {
public:
    RecordingWindow *createWindow() override
    {
        for (const auto &recorder : recorders)
            check(!recorder->live, "one recording a port");
        recorders.push_back(std::make_unique<Recorder>());
        return recorders.back().get();
    }
    std::unique_ptr<RecordingLog> createLog(const QString &) override
    {
        return std::make_unique<CheckedLog>();
    }
    void noteEnd(const QString &, const Varnel3Data &, RecordingWindow *) override { }

    std::vector<std::unique_ptr<Recorder>> recorders;
};

QByteArrayList linesOf(const QByteArray &bytes, int pieceSize)
{
    LineFramer framer;
    QByteArrayList lines;
    QByteArray line;
    for (int at = 0; at < bytes.size(); at += pieceSize) {
        framer.feed(bytes.mid(at, pieceSize));
        while (framer.next(&line))
            lines.append(line);
    }
    return lines;
}

} // namespace

// The first byte says in what pieces the bytes arrive; they must not
// matter. Half of the ends are left to time.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 2)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    const QByteArrayList lines = linesOf(bytes, bytes.size());
    check(linesOf(bytes, 1 + data[0] % 16) == lines, "pieces make no difference");

    Shell shell;
    Port port;
    LineDispatcher dispatcher(&port, &shell);
    for (const QByteArray &line : lines) {
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
