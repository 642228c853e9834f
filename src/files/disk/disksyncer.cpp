#include "files/disk/disksyncer.h"

#include "files/disk/filesync.h"
#include "files/disk/lockedfile.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace {

struct Entry {
    int descriptor;
    bool dirty;
    bool finishing;
    bool failing;
    QString name; // empty where nobody watches
    bool gone;
    std::promise<bool> finished;
};

} // namespace

/// What the syncer and its thread share, all of it guarded by the mutex.
struct DiskSyncer::Work {
    explicit Work(std::chrono::milliseconds ofRounds)
        : period(ofRounds)
    {
    }
    const Entry *find(int descriptor) const;
    Entry &entryFor(int descriptor);
    Entry &finish(int descriptor);
    void run();
    void syncRound(std::unique_lock<std::mutex> &lock);
    void look(std::unique_lock<std::mutex> &lock, size_t index);

    const std::chrono::milliseconds period;
    std::mutex mutex;
    std::condition_variable wake; // of the thread
    std::vector<Entry> entries;
    bool urgent = false;
    bool stopping = false;
};

DiskSyncer::DiskSyncer(std::chrono::milliseconds period)
    : m_work(std::make_shared<Work>(period))
{
}

DiskSyncer::~DiskSyncer()
{
    {
        const std::lock_guard<std::mutex> lock(m_work->mutex);
        m_work->stopping = true;
    }
    m_work->wake.notify_one();
    if (m_ended.valid())
        m_ended.wait_for(patience);
}

DiskSyncer::Work &DiskSyncer::started()
{
    if (!m_ended.valid()) {
        std::packaged_task<void()> task([work = m_work] { work->run(); });
        m_ended = task.get_future();
        std::thread(std::move(task)).detach();
    }
    return *m_work;
}

void DiskSyncer::watch(int descriptor, const QString &fileName)
{
    Work &work = started();
    const std::lock_guard<std::mutex> lock(work.mutex);
    work.entryFor(descriptor).name = fileName;
}

bool DiskSyncer::isGone(int descriptor) const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    const Entry *entry = m_work->find(descriptor);
    return entry && entry->gone;
}

void DiskSyncer::mark(int descriptor)
{
    Work &work = started();
    const std::lock_guard<std::mutex> lock(work.mutex);
    work.entryFor(descriptor).dirty = true;
}

void DiskSyncer::finish(int descriptor)
{
    Work &work = started();
    const std::lock_guard<std::mutex> lock(work.mutex);
    work.finish(descriptor);
}

std::future<bool> DiskSyncer::finishNow(int descriptor)
{
    Work &work = started();
    const std::lock_guard<std::mutex> lock(work.mutex);
    work.urgent = true;
    work.wake.notify_one();
    return work.finish(descriptor).finished.get_future();
}

bool DiskSyncer::isFailing(int descriptor) const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    const Entry *entry = m_work->find(descriptor);
    return entry && entry->failing;
}

const Entry *DiskSyncer::Work::find(int descriptor) const
{
    const auto known = std::find_if(entries.begin(), entries.end(),
        [descriptor](const Entry &entry) { return entry.descriptor == descriptor; });
    return known == entries.end() ? nullptr : &*known;
}

// A descriptor that is being finished still belongs to the old file, so that no number stands here twice.
Entry &DiskSyncer::Work::entryFor(int descriptor)
{
    if (const Entry *known = find(descriptor))
        return entries[size_t(known - entries.data())];
    Entry &added = entries.emplace_back(); // all of it false
    added.descriptor = descriptor;
    return added;
}

Entry &DiskSyncer::Work::finish(int descriptor)
{
    Entry &entry = entryFor(descriptor);
    entry.dirty = entry.finishing = true;
    return entry;
}

void DiskSyncer::Work::run()
{
    std::unique_lock<std::mutex> lock(mutex);
    for (bool last = false; !last;) {
        wake.wait_for(lock, period, [this] { return std::exchange(urgent, false) || stopping; });
        last = stopping; // else what is marked during a round would be left by the last one
        syncRound(lock);
    }
}

void DiskSyncer::Work::look(std::unique_lock<std::mutex> &lock, size_t index)
{
    const int descriptor = entries[index].descriptor;
    const QString name = entries[index].name;
    if (name.isEmpty())
        return;
    lock.unlock();
    const bool gone = !isStillNamed(descriptor, name);
    lock.lock();
    entries[index].gone = gone;
}

// The disk is waited for without the mutex. Only this thread closes and removes, so that indexes stay valid;
// a file that is written meanwhile is marked anew.
void DiskSyncer::Work::syncRound(std::unique_lock<std::mutex> &lock)
{
    for (size_t i = 0; i < entries.size();) {
        const int descriptor = entries[i].descriptor;
        look(lock, i);
        const bool finishing = entries[i].finishing;
        if (std::exchange(entries[i].dirty, false)) {
            lock.unlock();
            const bool synced = syncToDisk(descriptor);
            lock.lock();
            entries[i].failing = !synced;
            entries[i].dirty |= !synced;
        }
        if (!finishing) {
            ++i;
            continue;
        }
        closeFile(descriptor);
        entries[i].finished.set_value(!entries[i].failing);
        entries.erase(entries.begin() + std::ptrdiff_t(i));
    }
}
