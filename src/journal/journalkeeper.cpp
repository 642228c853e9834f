#include "journal/journalkeeper.h"

#include "journal/journallines.h"
#include "link/recordinglog.h"

#include <QFile>
#include <QTimer>

#include <utility>

namespace {

/// What a reader holds of the journal of its recording, and lets go at its end.
class LiveLog : public RecordingLog {
public:
    /// `keeper` and `journal` outlive this.
    LiveLog(JournalKeeper &keeper, Journal &journal, const QString &portName)
        : m_keeper(keeper)
        , m_journal(journal)
        , m_portName(portName)
    {
    }
    ~LiveLog() override
    {
        if (m_lines.areWorthKeeping()) {
            m_journal.finish();
            emit m_keeper.ended(m_journal.fileName());
        } else {
            m_journal.discard();
            emit m_keeper.discarded(m_journal.fileName());
        }
    }
    LiveLog(const LiveLog &) = delete;
    LiveLog &operator=(const LiveLog &) = delete;

    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        m_journal.append(m_lines.ofRecord(line, record));
        if (std::exchange(m_isFirst, false))
            emit m_keeper.began(m_journal.fileName(), m_portName, record);
    }
    void addResistanceLine(const QByteArray &line) override { m_journal.append(m_lines.ofResistances(line)); }

private:
    JournalKeeper &m_keeper;
    Journal &m_journal;
    QString m_portName;
    JournalLines m_lines;
    bool m_isFirst = true;
};

} // namespace

JournalKeeper::JournalKeeper(const QString &path, QObject *parent, std::chrono::milliseconds period)
    : QObject(parent)
    , m_folder(path)
    , m_syncer(period)
    , m_round(new QTimer(this))
{
    m_round->setInterval(period);
    connect(m_round, SIGNAL(timeout()), this, SLOT(lookAfterFiles()));
}

JournalKeeper::~JournalKeeper()
{
    m_journals.clear(); // what they have to tell is told to a whole object
}

std::unique_ptr<RecordingLog> JournalKeeper::create(const QString &portName)
{
    QMetaObject::invokeMethod(this, "lookAtSize", Qt::QueuedConnection); // a line waits for its journal
    const Journal::Listener listener
        = {[this](const Journal &journal, const QString &reason) { takeStall(journal, reason); },
            [this](const QString &fileName, const QString &newName) { takeReplacement(fileName, newName); }};
    Journal &journal = m_journals.emplace_back(m_folder, m_syncer, portName, listener);
    m_files.insert(portName, journal.fileName());
    m_round->start();
    return std::make_unique<LiveLog>(*this, journal, portName);
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

// A receiver of what retry() makes this tell may call create(): a list stays whole when it grows.
void JournalKeeper::lookAfterFiles()
{
    for (Journal &journal : m_journals)
        journal.retry();
    m_journals.remove_if([](const Journal &journal) { return journal.isClosed(); });
    if (m_journals.empty())
        m_round->stop();
}

void JournalKeeper::takeStall(const Journal &journal, const QString &reason)
{
    if (!journal.isComplete() || journal.isStalled())
        m_incomplete.insert(journal.fileName());
    else
        m_incomplete.remove(journal.fileName());
    if (journal.isStalled() && m_stalled++ == 0)
        emit stalled(reason);
    else if (!journal.isStalled() && --m_stalled == 0)
        emit resumed();
}

void JournalKeeper::takeReplacement(const QString &fileName, const QString &newName)
{
    if (m_incomplete.remove(fileName))
        m_incomplete.insert(newName);
    for (QString &name : m_files) {
        if (name == fileName)
            name = newName;
    }
    emit replaced(fileName, newName);
}
