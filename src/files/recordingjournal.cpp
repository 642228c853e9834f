#include "files/recordingjournal.h"

#include "files/disksyncer.h"
#include "files/filesync.h"
#include "files/journalfile.h"
#include "files/journalfolder.h"
#include "files/journalnotices.h"
#include "files/linetrimming.h"

#include "data/recordline.h"
#include "data/saturated.h"
#include "data/varnel3data.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

constexpr int leastRecords = 2;
constexpr int mostAttempts = 100; // at a free name
constexpr int retryPeriod = 1000; // ms
constexpr int mostWaiting = 64 * 1024 * 1024; // bytes; the hours that a full disk may stay full
constexpr int longestLine = 4096; // beyond it no device's
constexpr int balancerStep = 5; // s

bool sameCells(const Varnel3Data &a, const Varnel3Data &b)
{
    const int read = std::min(a.cellsPresent() + 1, int(Varnel3Data::maxCells)); // as far as lines go
    return std::equal(a.cells, a.cells + read, b.cells, [](const CellData &one, const CellData &other) {
        return one.voltage == other.voltage && one.balance == other.balance;
    });
}

bool sameMeasurement(const Varnel3Data &a, const Varnel3Data &b)
{
    return a.device == b.device && a.mode == b.mode && a.cellType == b.cellType && a.cellCount == b.cellCount
        && a.flag1 == b.flag1 && a.flag2 == b.flag2 && a.flag3 == b.flag3 && a.flag4 == b.flag4
        && a.flag5 == b.flag5 && a.ballansingCurrent == b.ballansingCurrent && a.time == b.time
        && a.voltage == b.voltage && a.current == b.current && a.temperature == b.temperature
        && a.energy == b.energy && a.internalResistance == b.internalResistance && sameCells(a, b);
}

// A line that does not depend on those before it says more than the record does: the device, and modes that have no
// letter in record lines.
bool standsAlone(const QByteArray &line, const Varnel3Data &record)
{
    if (line.size() > longestLine || line.contains('\n'))
        return false;
    Varnel3Data fresh;
    return fresh.parseLine(trimmedLine(QLatin1String(line.constData(), line.size())))
        && sameMeasurement(fresh, record);
}

} // namespace

RecordingJournal::RecordingJournal(
    const JournalFolder &folder, DiskSyncer &syncer, JournalNotices &notices, const QString &portName)
    : m_folder(folder)
    , m_syncer(syncer)
    , m_notices(notices)
    , m_portName(portName)
    , m_started(QDateTime::currentDateTime())
{
    create();
}

RecordingJournal::~RecordingJournal()
{
    drain();
    if (m_stalled)
        m_notices.journalResumed(m_fileName);
    if (m_descriptor < 0)
        return;
    m_syncer.finish(m_descriptor);
    if (m_records < leastRecords)
        QFile::remove(m_fileName);
}

void RecordingJournal::addRecord(const QString &line, const Varnel3Data &record)
{
    append(recordLine(line, record));
    ++m_records;
}

void RecordingJournal::addResistanceLine(const QString &line)
{
    append(line.trimmed().toLatin1());
}

// A balancer's line has no time; the graph counts 5 s a record, and so does the file.
QByteArray RecordingJournal::recordLine(const QString &line, const Varnel3Data &record)
{
    const bool balancer = record.device == Varnel3Data::Tandor;
    const QByteArray asItCame = line.toLatin1();
    if (!balancer && standsAlone(asItCame, record))
        return asItCame;
    Varnel3Data written = record;
    if (balancer)
        written.setTime(saturated(qint64(balancerStep) * m_records));
    char bytes[maxRecordLineLength];
    return QByteArray(bytes, int(writeRecordLine(bytes, written) - bytes));
}

void RecordingJournal::append(const QByteArray &line)
{
    if (m_waiting.size() < mostWaiting)
        m_waiting += line + lineEnd;
    if (m_stalled && m_lastTry.isValid() && !m_lastTry.hasExpired(retryPeriod))
        return;
    drain();
}

bool RecordingJournal::create()
{
    QDir().mkpath(m_folder.path());
    CreatedFile created;
    for (; m_attempt <= mostAttempts; ++m_attempt) {
        m_fileName = m_folder.fileName(m_started, m_portName, m_attempt);
        created = createJournalFile(m_fileName);
        if (!created.exists)
            break;
    }
    m_descriptor = created.descriptor;
    if (m_descriptor < 0)
        stall(created.reason);
    else
        syncFolder(m_folder.path());
    return m_descriptor >= 0;
}

void RecordingJournal::drain()
{
    m_lastTry.start();
    if (m_descriptor < 0 && (m_waiting.isEmpty() || !create()))
        return;
    if (m_waiting.isEmpty())
        return;
    const int written = appendBytes(m_descriptor, m_waiting.constData(), m_waiting.size());
    const QString failure = written < 0 ? qt_error_string() : QString();
    takeWritten(std::max(0, written));
    m_syncer.mark(m_descriptor);
    tellOutcome(failure);
}

void RecordingJournal::tellOutcome(const QString &failure)
{
    if (!m_waiting.isEmpty() || m_syncer.takeFailure(m_descriptor)) {
        stall(failure.isEmpty() ? QCoreApplication::translate("RecordingJournal", "the disk is full")
                                : failure);
    } else if (m_stalled) {
        m_stalled = false;
        m_notices.journalResumed(m_fileName);
    }
}

// A line that was taken in part is cut off again: a number without its end would read as another number.
void RecordingJournal::takeWritten(int bytes)
{
    const int whole = bytes > 0 ? m_waiting.lastIndexOf('\n', bytes - 1) + 1 : 0;
    const bool cut = bytes > whole && cutFile(m_descriptor, m_size + whole);
    const int taken = cut ? whole : bytes;
    m_size += taken;
    m_waiting.remove(0, taken);
}

void RecordingJournal::stall(const QString &reason)
{
    if (m_stalled)
        return;
    m_stalled = true;
    m_notices.journalStalled(m_fileName, reason);
}
