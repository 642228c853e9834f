#pragma once

#include <QString>

#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

/// Brings what was written to some files to the disk once a second, and looks whether they still have their
/// names, in a thread of its own, which touches nothing but their descriptors and names. Files are registered, marked and handed over from one other thread.
class DiskSyncer {
public:
    DiskSyncer() = default;
    /// Brings everything to the disk and waits for it.
    ~DiskSyncer();
    DiskSyncer(const DiskSyncer &) = delete;
    DiskSyncer &operator=(const DiskSyncer &) = delete;

    /// Looks once a second whether `fileName` still leads to `descriptor`.
    void watch(int descriptor, const QString &fileName);
    /// The file of `descriptor`, which is watched, was removed or replaced.
    bool isGone(int descriptor) const;
    /// `descriptor` was written to; it is synced within a second.
    void mark(int descriptor);
    /// Syncs `descriptor` a last time and closes it; the caller must not use it any more.
    void finish(int descriptor);
    /// The same at once; what comes of it says whether the disk took everything.
    std::future<bool> finishNow(int descriptor);
    /// Whether the newest sync of `descriptor` has failed; it is then tried again within a second.
    bool isFailing(int descriptor) const;

private:
    struct Entry {
        int descriptor;
        bool dirty;
        bool finishing;
        bool failing;
        QString name; // empty where nobody watches
        bool gone;
        std::promise<bool> finished;
    };

    const Entry *find(int descriptor) const;
    Entry &entryFor(int descriptor);
    void run();
    void syncRound(std::unique_lock<std::mutex> &lock);
    void look(std::unique_lock<std::mutex> &lock, size_t index);

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::vector<Entry> m_entries; // guarded by the mutex
    bool m_urgent = false; // guarded by the mutex
    bool m_stopping = false; // guarded by the mutex
    std::thread m_thread; // started with the first file
};
