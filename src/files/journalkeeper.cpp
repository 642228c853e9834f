#include "files/journalkeeper.h"

#include "files/recordingjournal.h"

JournalKeeper::JournalKeeper(const QString &path, QObject *parent)
    : QObject(parent)
    , m_folder(path)
{
}

JournalKeeper::~JournalKeeper() = default;

std::unique_ptr<RecordingLog> JournalKeeper::create(const QString &portName)
{
    lookAtSize();
    JournalNotices &notices = *this;
    auto journal = std::make_unique<RecordingJournal>(m_folder, m_syncer, notices, portName);
    m_files.insert(portName, journal->fileName());
    return journal;
}

void JournalKeeper::tidy(int maxAgeDays)
{
    m_folder.removeEmpty();
    m_folder.removeOlderThan(maxAgeDays);
}

void JournalKeeper::lookAtSize()
{
    if (m_largeTold)
        return;
    const qint64 size = m_folder.totalSize();
    if (size <= largeFolder)
        return;
    m_largeTold = true;
    emit folderLarge(m_folder.path(), size);
}

void JournalKeeper::journalStalled(const QString &, const QString &reason)
{
    if (++m_stalled == 1)
        emit stalled(reason);
}

void JournalKeeper::journalResumed(const QString &)
{
    if (--m_stalled == 0)
        emit resumed();
}
