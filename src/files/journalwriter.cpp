#include "files/journalwriter.h"

#include "files/disksyncer.h"
#include "files/filesync.h"
#include "files/journalfile.h"
#include "files/journalfolder.h"
#include "files/journalnotices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

constexpr int mostAttempts = 100; // at a free name
constexpr int mostWaiting = 64 * 1024 * 1024; // bytes; the hours that a full disk may stay full

QString text(const char *english)
{
    return QCoreApplication::translate("JournalWriter", english);
}

} // namespace

JournalWriter::JournalWriter(
    const JournalFolder &folder, DiskSyncer &syncer, JournalNotices &notices, const QString &portName)
    : m_folder(folder)
    , m_syncer(syncer)
    , m_notices(notices)
    , m_portName(portName)
    , m_started(QDateTime::currentDateTime())
{
    create();
}

JournalWriter::~JournalWriter()
{
    if (m_done)
        return;
    drain();
    close();
}

void JournalWriter::append(const QByteArray &line)
{
    if (m_waiting.size() < mostWaiting)
        m_waiting += line + lineEnd;
    else
        m_complete = false;
    if (!m_stalled)
        drain();
}

void JournalWriter::retry()
{
    if (!m_stalled)
        return;
    drain();
    if (m_finished && m_waiting.isEmpty())
        close();
}

void JournalWriter::finish()
{
    m_finished = true;
    drain();
    if (m_waiting.isEmpty())
        close();
}

void JournalWriter::discard()
{
    m_waiting.clear();
    const bool created = m_descriptor >= 0;
    close();
    if (created)
        QFile::remove(m_fileName);
}

bool JournalWriter::create()
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
    if (m_descriptor < 0) {
        stall(created.reason);
        return false;
    }
    const int folder = openFolder(m_folder.path());
    if (folder >= 0)
        m_syncer.finish(folder); // the new name, too, without waiting for the disk here
    return true;
}

void JournalWriter::drain()
{
    if (m_descriptor < 0 && !create())
        return;
    QString failure;
    if (!m_waiting.isEmpty()) {
        const int written = appendBytes(m_descriptor, m_waiting.constData(), m_waiting.size());
        if (written < 0)
            failure = qt_error_string();
        takeWritten(std::max(0, written));
        m_syncer.mark(m_descriptor);
    }
    tellOutcome(failure);
}

// A line that was taken in part is cut off again: a number without its end would read as another number.
void JournalWriter::takeWritten(int bytes)
{
    const int whole = bytes > 0 ? m_waiting.lastIndexOf('\n', bytes - 1) + 1 : 0;
    const bool cut = bytes > whole && cutFile(m_descriptor, m_size + whole);
    const int taken = cut ? whole : bytes;
    m_size += taken;
    m_waiting.remove(0, taken);
}

void JournalWriter::tellOutcome(const QString &failure)
{
    if (!m_waiting.isEmpty()) {
        stall(failure.isEmpty() ? text("the disk is full") : failure);
    } else if (m_syncer.isFailing(m_descriptor)) {
        m_complete = false; // the system may have dropped what it could not bring to the disk
        stall(text("the disk reports an error"));
    } else if (m_stalled) {
        m_stalled = false;
        m_notices.journalResumed(m_fileName, m_complete);
    }
}

void JournalWriter::stall(const QString &reason)
{
    if (m_stalled)
        return;
    m_stalled = true;
    m_notices.journalStalled(m_fileName, reason);
}

void JournalWriter::close()
{
    m_done = true;
    if (m_descriptor >= 0)
        m_syncer.finish(m_descriptor);
    m_descriptor = -1;
    if (!m_stalled)
        return;
    m_stalled = false;
    m_notices.journalResumed(m_fileName, m_complete && m_waiting.isEmpty());
}
