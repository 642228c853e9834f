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

/// A journal in memory and what it ought to say, which are compared when the recording ends.
class CheckedLog : public RecordingLog {
public:
    CheckedLog() = default;
    ~CheckedLog() override
    {
        check(m_lines.areWorthKeeping() == (m_records.size() >= 2),
            "a file of two records or more, and no other");
        if (m_lines.areWorthKeeping())
            compare(read());
    }
    CheckedLog(const CheckedLog &) = delete;
    CheckedLog &operator=(const CheckedLog &) = delete;

    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        append(m_lines.ofRecord(line, record));
        Varnel3Data fresh;
        m_standsAlone.push_back(line.size() < 4000 && fresh.parseLine(QLatin1String(line))
            && fieldsOf(fresh) == fieldsOf(record));
        Varnel3Data &expected = m_records.append(record);
        if (record.device == Varnel3Data::Tandor)
            expected.setTime(5 * (m_records.size() - 1));
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

    static bool same(const Varnel3Data &a, const Varnel3Data &b)
    {
        const auto sameResistance
            = [](const CellData &one, const CellData &other) { return one.resistance == other.resistance; };
        return a.toRecordLine() == b.toRecordLine() && a.resistanceValid == b.resistanceValid
            && std::equal(a.cells, a.cells + Varnel3Data::maxCells, b.cells, sameResistance);
    }

    // Some are in a mode that only the device's own line has a letter for, which may build on those before.
    void compare(const RecordList &found) const
    {
        int at = 0;
        for (int i = 0; i < m_records.size(); ++i) {
            const Varnel3Data &record = m_records[i];
            const bool standsAlone = record.device != Varnel3Data::Tandor && m_standsAlone[size_t(i)];
            if (at < found.size() && same(found[at], record)) {
                const bool sameDevice = found[at].device == record.device && found[at].mode == record.mode;
                check(sameDevice || !standsAlone, "a record comes back with its device and mode");
                ++at;
            } else {
                check(!standsAlone && !isRecordLineReadable(record),
                    "a record comes back from its journal as it was");
            }
        }
        check(at == found.size(), "a journal has nothing that was not recorded");
    }

    RecordList m_records;
    std::vector<bool> m_standsAlone; // a record is what its line says by itself
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
