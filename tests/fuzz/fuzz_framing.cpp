#include "protocol/recordline.h"
#include "journal/journallines.h"
#include "fuzzfile.h"
#include "link/lineframer.h"
#include "link/linedispatcher.h"
#include "link/recordinglog.h"
#include "support/fakelink.h"
#include "support/fakeshell.h"

#include <QByteArrayList>
#include <QCoreApplication>

namespace {

/// A journal in memory, which is read as a data file when the recording ends.
class CheckedLog : public RecordingLog {
public:
    CheckedLog() = default;
    ~CheckedLog() override
    {
        RecordList found;
        check(m_lines.areWorthKeeping() == (m_records.size() >= 2),
            "a file of two records or more, and no other");
        if (m_records.size() < 2)
            return;
        check(readDataFile(m_text, QStringLiteral("x.acp"), LineSource::usualChunk, &found),
            "a journal is a file");
        compare(found);
    }
    CheckedLog(const CheckedLog &) = delete;
    CheckedLog &operator=(const CheckedLog &) = delete;

    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        m_text += m_lines.ofRecord(line, record) + '\n';
        m_records.append(record);
    }
    void addResistanceLine(const QByteArray &line) override
    {
        m_text += m_lines.ofResistances(line) + '\n';
        Varnel3Data newest = m_records.last();
        check(newest.parseResistanceLine(QLatin1String(line)), "only '!' lines");
        m_records.replaceLast(newest);
    }

private:
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

class Shell : public FakeShell {
public:
    std::unique_ptr<RecordingLog> createLog(const QString &) override
    {
        return std::make_unique<CheckedLog>();
    }
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

// The first byte says in what pieces the bytes arrive; they must not matter. Half of the ends are left to
// time.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 2)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    const QByteArrayList lines = linesOf(bytes, bytes.size());
    check(linesOf(bytes, 1 + data[0] % 16) == lines, "pieces make no difference");

    Shell shell;
    FakeLink port;
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
    int unended = 0;
    const QVector<Recording> recordings = shell.windowRecordings();
    for (const Recording &recording : recordings) {
        const int end = recording.indexOf(QStringLiteral("end"));
        unended += end < 0;
        check(end < 0 || end == recording.size() - 1, "what has ended does not go on");
    }
    check(unended <= 1, "one recording a port");
    for (const QString &command : qAsConst(port.commands))
        check(command.endsWith(QLatin1String("\r\n")), "commands end");
    QCoreApplication::removePostedEvents(nullptr);
    return 0;
}
