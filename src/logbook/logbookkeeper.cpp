#include "logbook/logbookkeeper.h"

#include "logbook/logbookfile.h"
#include "logbook/logbookqueue.h"

#include <QDebug>
#include <QMetaObject>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds lastRetryTime(100); // at the end
constexpr std::chrono::milliseconds gatheringTime(100); // in which what is read falls together
constexpr std::chrono::seconds lookTime(1); // between two looks for changes of other programs, and two tries
using Clock = std::chrono::steady_clock;

/// Lets a mutex go while it lives: what is done meanwhile waits for the disk, or takes the mutex itself.
class Unlocked {
public:
    explicit Unlocked(std::unique_lock<std::mutex> &lock)
        : m_lock(lock)
    {
        m_lock.unlock();
    }
    ~Unlocked() { m_lock.lock(); }
    Unlocked(const Unlocked &) = delete;
    Unlocked &operator=(const Unlocked &) = delete;

private:
    std::unique_lock<std::mutex> &m_lock;
};

} // namespace

struct LogbookKeeper::Work {
    void run(const QString &folder);
    void loop(LogbookFile &file);
    void giveUp(const std::exception &error);
    Clock::time_point due() const;
    void waitForWork(std::unique_lock<std::mutex> &lock);
    void writeAll(LogbookFile &file, std::unique_lock<std::mutex> &lock);
    int writeLot(LogbookFile &file, const LogbookQueue::Lot &lot, QString *reason);
    bool writeOne(LogbookFile &file, const LogbookBatch &batch, QString *reason);
    void tellStalled(const QString &reason, std::unique_lock<std::mutex> &lock);
    void lookForOthers(LogbookFile &file, std::unique_lock<std::mutex> &lock);
    void backUp(LogbookFile &file, std::unique_lock<std::mutex> &lock);
    void tell(const std::function<void()> &news);

    std::mutex mutex;
    std::condition_variable changed;
    Listener listener; // called in the receiver's thread only
    QObject *receiver = nullptr; // these are guarded by the mutex; null once nobody wants to hear
    LogbookQueue queue;
    quint64 accepted = 0; // batches; changes in the receiver's thread only
    Clock::time_point readingsDue; // while such wait
    bool isNew = false; // something has come since the thread looked
    bool ending = false;
    bool abandoned = false; // nobody waits for the end any more
    bool ended = false;
    bool stalled = false; // what was tried last could not be written
    std::atomic<bool> isStale = false; // what others wrote was overtaken by a change of this program

    bool unsaved = false; // what the user knows is not in a backup; these are the thread's
    Clock::time_point lookDue;
    Clock::time_point backupDue;
};

LogbookKeeper::LogbookKeeper(const QString &folder, const Listener &listener)
    : LogbookKeeper(folder, listener, Patience())
{
}

LogbookKeeper::LogbookKeeper(const QString &folder, const Listener &listener, const Patience &patience)
    : m_patience(patience)
    , m_work(std::make_shared<Work>())
{
    m_work->listener = listener;
    m_work->receiver = &m_receiver;
    try {
        std::thread([work = m_work, folder] { work->run(folder); }).detach();
    } catch (const std::system_error &error) { // no more threads
        m_work->giveUp(error);
    }
}

LogbookKeeper::~LogbookKeeper()
{
    std::unique_lock<std::mutex> lock(m_work->mutex);
    m_work->receiver = nullptr;
    m_work->ending = true;
    m_work->changed.notify_all();
    const auto hasEnded = [this] { return m_work->ended; };
    if (m_work->changed.wait_for(lock, m_patience.rest, hasEnded))
        return;
    const auto isDecided = [this] { return m_work->stalled || !m_work->queue.holdsFirst(); };
    m_work->changed.wait_for(lock, m_patience.users, isDecided);
    const bool kept = !m_work->queue.holdsFirst();
    m_work->abandoned = true;
    qWarning(
        kept ? "The logbook's disk does not answer." : "The logbook's disk takes nothing: changes are lost.");
}

void LogbookKeeper::write(const LogbookBatch &batch)
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    if (m_work->ended) // has been told
        return;
    if (m_work->queue.isEmpty())
        m_work->readingsDue = Clock::now() + gatheringTime;
    m_work->queue.add(batch);
    ++m_work->accepted;
    m_work->isNew = true;
    m_work->changed.notify_all();
}

bool LogbookKeeper::isIdle() const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->queue.isEmpty();
}

bool LogbookKeeper::holdsUsers() const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->queue.holdsFirst();
}

void LogbookKeeper::Work::run(const QString &folder)
{
    try {
        LogbookFile file(folder);
        const LogbookContent content = file.open();
        tell([this, content] { listener.opened(content); });
        loop(file);
    } catch (const std::exception &error) { // no memory
        giveUp(error);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    ended = true;
    changed.notify_all();
}

void LogbookKeeper::Work::giveUp(const std::exception &error)
{
    qWarning() << "The logbook is not kept:" << error.what();
    const QString reason = QString::fromLocal8Bit(error.what());
    tell([this, reason] { listener.refused(reason); });
    const std::lock_guard<std::mutex> lock(mutex);
    queue = LogbookQueue();
    ended = true;
}

void LogbookKeeper::Work::loop(LogbookFile &file)
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.notify_all();
        waitForWork(lock);
        const bool last = ending;
        writeAll(file, lock);
        if (Clock::now() >= lookDue && !last)
            lookForOthers(file, lock);
        if (unsaved && (Clock::now() >= backupDue || (last && !queue.holdsFirst())))
            backUp(file, lock);
        if (abandoned || (last && !queue.holdsFirst() && (queue.isEmpty() || stalled)))
            return;
    }
}

/// When there is something to do, should nothing come.
Clock::time_point LogbookKeeper::Work::due() const
{
    Clock::time_point due = lookDue;
    if (unsaved)
        due = std::min(due, backupDue);
    return queue.isEmpty() || stalled ? due : std::min(due, readingsDue);
}

// What the user changes is tried at once, even while the disk is full.
void LogbookKeeper::Work::waitForWork(std::unique_lock<std::mutex> &lock)
{
    if (ending && stalled) {
        changed.wait_for(lock, lastRetryTime);
        return;
    }
    while (!ending && Clock::now() < due() && !(isNew && queue.holdsFirst())) {
        isNew = false;
        changed.wait_until(lock, due(), [this] { return ending || isNew; });
    }
    isNew = false;
}

/// Until nothing waits, or something can't be written. The disk is waited for without the mutex.
void LogbookKeeper::Work::writeAll(LogbookFile &file, std::unique_lock<std::mutex> &lock)
{
    QString reason;
    while (reason.isEmpty() && !queue.isEmpty()) {
        const LogbookQueue::Lot lot = queue.next();
        int done = 0;
        {
            const Unlocked meanwhile(lock);
            done = writeLot(file, lot, &reason);
        }
        queue.drop(lot, done);
        changed.notify_all();
    }
    tellStalled(reason, lock);
}

/// How many of the lot's batches are done with; `reason` says why the others are not. One that the file does
/// not take costs none of the others.
int LogbookKeeper::Work::writeLot(LogbookFile &file, const LogbookQueue::Lot &lot, QString *reason)
{
    const int count = lot.batches.size();
    const LogbookFile::Written written = file.write(lot.batches, reason);
    if (written == LogbookFile::Written::NotYet)
        return 0;
    int done = written == LogbookFile::Written::Yes ? count : 0;
    reason->clear();
    while (done < count && writeOne(file, lot.batches[done], reason))
        ++done;
    const bool users = std::any_of(lot.batches.begin(), lot.batches.begin() + done,
        [](const LogbookBatch &batch) { return batch.isUsers; });
    if (users && !std::exchange(unsaved, true))
        backupDue = Clock::now() + backupDelay;
    return done;
}

/// False when it has to be tried again.
bool LogbookKeeper::Work::writeOne(LogbookFile &file, const LogbookBatch &batch, QString *reason)
{
    const LogbookFile::Written written = file.write({batch}, reason);
    if (written == LogbookFile::Written::NotYet)
        return false;
    if (written == LogbookFile::Written::Never) {
        qWarning() << "The logbook does not take a change:" << *reason;
        if (batch.isUsers)
            tell([this, why = *reason] { listener.refused(why); });
    }
    reason->clear();
    return true;
}

void LogbookKeeper::Work::tellStalled(const QString &reason, std::unique_lock<std::mutex> &lock)
{
    const bool before = std::exchange(stalled, !reason.isEmpty());
    if (stalled == before)
        return;
    const Unlocked meanwhile(lock);
    tell([this, reason] { listener.stalled(reason); });
}

// What is read lacks the changes that come meanwhile: they would seem to be taken back.
void LogbookKeeper::Work::lookForOthers(LogbookFile &file, std::unique_lock<std::mutex> &lock)
{
    lookDue = Clock::now() + lookTime;
    if (!queue.isEmpty())
        return;
    const quint64 before = accepted;
    const bool again = isStale.exchange(false);
    const Unlocked meanwhile(lock);
    LogbookContent content;
    if (file.wasWrittenByOthers() || again) {
        if (file.readAgain(&content))
            tell([this, content, before] {
                if (accepted == before)
                    listener.changed(content);
                else
                    isStale = true;
            });
        else
            tell([this] { isStale = true; });
    }
}

void LogbookKeeper::Work::backUp(LogbookFile &file, std::unique_lock<std::mutex> &lock)
{
    const Unlocked meanwhile(lock);
    unsaved = !file.backUp();
    backupDue = Clock::now() + backupDelay;
}

void LogbookKeeper::Work::tell(const std::function<void()> &news)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (receiver)
        QMetaObject::invokeMethod(receiver, news, Qt::QueuedConnection);
}
