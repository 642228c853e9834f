#include "logbook/logbookkeeper.h"

#include "logbook/logbookfile.h"

#include <QDebug>
#include <QMetaObject>

#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::seconds retryTime(5);
using Clock = std::chrono::steady_clock;

} // namespace

struct LogbookKeeper::Work {
    void run(const QString &folder);
    void loop(LogbookFile &file);
    void giveUp(const std::exception &error);
    bool writeAll(LogbookFile &file, std::unique_lock<std::mutex> &lock);
    void tell(const std::function<void()> &news);

    std::mutex mutex;
    std::condition_variable changed;
    Listener listener; // called in the receiver's thread only
    QObject *receiver = nullptr; // these are guarded by the mutex; null once nobody wants to hear
    QVector<LogbookBatch> waiting;
    bool writing = false; // the thread is at something
    bool isNew = false; // something has come since the thread looked
    bool ending = false;
    bool ended = false;

    bool stalled = false; // these are the thread's
    bool unsaved = false; // what the user knows is not in a backup
    Clock::time_point backupDue;
};

LogbookKeeper::LogbookKeeper(const QString &folder, const Listener &listener)
    : m_work(std::make_shared<Work>())
{
    m_work->listener = listener;
    m_work->receiver = &m_receiver;
    m_work->writing = true;
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
    if (!m_work->changed.wait_for(lock, patience, [this] { return m_work->ended; }))
        qWarning("The logbook's disk does not answer.");
}

void LogbookKeeper::write(const LogbookBatch &batch)
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    if (m_work->ended) // has been told
        return;
    m_work->waiting.append(batch);
    m_work->isNew = true;
    m_work->changed.notify_all();
}

bool LogbookKeeper::isIdle() const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->waiting.isEmpty() && !m_work->writing;
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
    writing = false;
    ended = true;
    changed.notify_all();
}

void LogbookKeeper::Work::giveUp(const std::exception &error)
{
    qWarning() << "The logbook is not kept:" << error.what();
    const QString reason = QString::fromLocal8Bit(error.what());
    tell([this, reason] { listener.refused(reason); });
    const std::lock_guard<std::mutex> lock(mutex);
    waiting.clear();
    writing = false;
    ended = true;
}

void LogbookKeeper::Work::loop(LogbookFile &file)
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        writing = false;
        changed.notify_all();
        const auto due = [this] { return ending || (!waiting.isEmpty() && !stalled); };
        if (stalled)
            changed.wait_for(lock, retryTime, [this] { return ending || isNew; });
        else if (unsaved)
            changed.wait_until(lock, backupDue, due);
        else
            changed.wait(lock, due);
        writing = true;
        isNew = false;
        const bool last = ending;
        const bool written = writeAll(file, lock);
        if (unsaved && (last || Clock::now() >= backupDue)) {
            lock.unlock();
            unsaved = !file.backUp();
            backupDue = Clock::now() + backupDelay;
            lock.lock();
        }
        if (last && (waiting.isEmpty() || !written))
            return;
    }
}

/// The disk is waited for without the mutex. False while something can't be written.
bool LogbookKeeper::Work::writeAll(LogbookFile &file, std::unique_lock<std::mutex> &lock)
{
    QString reason;
    while (!waiting.isEmpty()) {
        const LogbookBatch batch = waiting.first();
        lock.unlock();
        const LogbookFile::Written written = file.write(batch, &reason);
        lock.lock();
        if (written == LogbookFile::Written::NotYet)
            break;
        waiting.removeFirst();
        if (written == LogbookFile::Written::Never && !reason.isEmpty()) {
            qWarning() << "The logbook does not take a change:" << reason;
            lock.unlock();
            if (batch.isUsers)
                tell([this, reason] { listener.refused(reason); });
            lock.lock();
        }
        if (batch.isUsers && written == LogbookFile::Written::Yes && !std::exchange(unsaved, true))
            backupDue = Clock::now() + backupDelay;
        reason.clear();
    }
    if (stalled != !reason.isEmpty()) {
        stalled = !reason.isEmpty();
        lock.unlock();
        tell([this, reason] { listener.stalled(reason); });
        lock.lock();
    }
    return !stalled;
}

void LogbookKeeper::Work::tell(const std::function<void()> &news)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (receiver)
        QMetaObject::invokeMethod(receiver, news, Qt::QueuedConnection);
}
