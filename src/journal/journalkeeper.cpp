#include "journal/journalkeeper.h"

#include "journal/journal.h"
#include "journal/journallines.h"

#include <QFile>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int roundPeriod = 1000; // ms

} // namespace

JournalKeeper::JournalKeeper(const QString &path, QObject *parent)
    : QObject(parent)
    , m_folder(path)
    , m_round(new QTimer(this))
{
    m_round->setInterval(roundPeriod);
    connect(m_round, SIGNAL(timeout()), this, SLOT(lookAfterFiles()));
}

JournalKeeper::~JournalKeeper()
{
    m_writers.clear(); // what they have to tell is told to a whole object
}

std::unique_ptr<RecordingLog> JournalKeeper::create(const QString &portName)
{
    QMetaObject::invokeMethod(this, "lookAtSize", Qt::QueuedConnection); // a line waits for its journal
    forgetDone();
    JournalNotices &notices = *this;
    m_writers.push_back(std::make_unique<JournalWriter>(m_folder, m_syncer, notices, portName));
    JournalWriter &writer = *m_writers.back();
    m_files.insert(portName, writer.fileName());
    m_round->start();
    return std::make_unique<RecordingJournal>(writer);
}

bool JournalKeeper::holdsAll(const QString &fileName) const
{
    return !m_incomplete.contains(fileName) && QFile::exists(fileName);
}

void JournalKeeper::tidy(int maxAgeDays)
{
    m_folder.removeEmpty();
    m_folder.discardOlderThan(maxAgeDays);
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

void JournalKeeper::lookAfterFiles()
{
    // Who is told may start a recording, which moves the writers.
    for (size_t i = 0; i < m_writers.size(); ++i) // NOLINT(modernize-loop-convert)
        m_writers[i]->retry();
    forgetDone();
}

void JournalKeeper::forgetDone()
{
    const auto done = std::remove_if(m_writers.begin(), m_writers.end(),
        [](const std::unique_ptr<JournalWriter> &writer) { return writer->isDone(); });
    m_writers.erase(done, m_writers.end());
    if (m_writers.empty())
        m_round->stop();
}

void JournalKeeper::journalStalled(const QString &fileName, const QString &reason)
{
    m_incomplete.insert(fileName);
    if (++m_stalled > 1)
        return;
    emit stalled(reason);
}

void JournalKeeper::journalReplaced(const QString &fileName, const QString &newName)
{
    if (m_incomplete.remove(fileName))
        m_incomplete.insert(newName);
    for (QString &name : m_files) {
        if (name == fileName)
            name = newName;
    }
    emit replaced(fileName, newName);
}

void JournalKeeper::journalResumed(const QString &fileName, bool complete)
{
    if (complete)
        m_incomplete.remove(fileName);
    if (--m_stalled > 0)
        return;
    emit resumed();
}
