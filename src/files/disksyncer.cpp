#include "files/disksyncer.h"

#include "files/filesync.h"
#include "files/journalfile.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::seconds period(1);

} // namespace

DiskSyncer::~DiskSyncer()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void DiskSyncer::watch(int descriptor, const QString &fileName)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    entryFor(descriptor).name = fileName;
}

bool DiskSyncer::isGone(int descriptor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Entry *entry = find(descriptor);
    return entry && entry->gone;
}

void DiskSyncer::mark(int descriptor)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    entryFor(descriptor).dirty = true;
}

void DiskSyncer::finish(int descriptor)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Entry &entry = entryFor(descriptor);
    entry.dirty = true;
    entry.finishing = true;
}

std::future<bool> DiskSyncer::finishNow(int descriptor)
{
    std::future<bool> outcome;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        Entry &entry = entryFor(descriptor);
        entry.dirty = true;
        entry.finishing = true;
        outcome = entry.finished.get_future();
        m_urgent = true;
    }
    m_wake.notify_one();
    return outcome;
}

bool DiskSyncer::isFailing(int descriptor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Entry *entry = find(descriptor);
    return entry && entry->failing;
}

const DiskSyncer::Entry *DiskSyncer::find(int descriptor) const
{
    const auto known = std::find_if(m_entries.begin(), m_entries.end(),
        [descriptor](const Entry &entry) { return entry.descriptor == descriptor; });
    return known == m_entries.end() ? nullptr : &*known;
}

// A descriptor that is being finished still belongs to the old file, so that no number stands here twice.
DiskSyncer::Entry &DiskSyncer::entryFor(int descriptor)
{
    if (const Entry *known = find(descriptor))
        return m_entries[size_t(known - m_entries.data())];
    m_entries.push_back({descriptor, false, false, false, QString(), false, {}});
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    return m_entries.back();
}

void DiskSyncer::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopping) {
        m_wake.wait_for(lock, period, [this] { return m_stopping || m_urgent; });
        m_urgent = false;
        syncRound(lock);
    }
}

void DiskSyncer::look(std::unique_lock<std::mutex> &lock, size_t index)
{
    const int descriptor = m_entries[index].descriptor;
    const QString name = m_entries[index].name;
    if (name.isEmpty())
        return;
    lock.unlock();
    const bool gone = !isStillNamed(descriptor, name);
    lock.lock();
    m_entries[index].gone = gone;
}

// The disk is waited for without the mutex. Only this thread closes and removes, so that indexes stay valid;
// a file that is written meanwhile is marked anew.
void DiskSyncer::syncRound(std::unique_lock<std::mutex> &lock)
{
    for (size_t i = 0; i < m_entries.size();) {
        const int descriptor = m_entries[i].descriptor;
        look(lock, i);
        const bool finishing = m_entries[i].finishing;
        if (m_entries[i].dirty) {
            m_entries[i].dirty = false;
            lock.unlock();
            const bool synced = syncToDisk(descriptor);
            lock.lock();
            m_entries[i].failing = !synced;
            m_entries[i].dirty |= !synced;
        }
        if (!finishing) {
            ++i;
            continue;
        }
        closeFile(descriptor);
        m_entries[i].finished.set_value(!m_entries[i].failing);
        m_entries.erase(m_entries.begin() + std::ptrdiff_t(i));
    }
}
