#pragma once

#include <QString>

#include <chrono>
#include <future>
#include <memory>

/// Brings what was written to some files to the disk once a second, and looks whether they still have their
/// names, in a thread of its own, which touches nothing but their descriptors and names. Files are
/// registered, marked and handed over from one other thread.
class DiskSyncer {
public:
    /// What the end of a syncer waits for a disk.
    static constexpr std::chrono::seconds patience{5};

    /// `period` is what a file that was written to waits for the disk at most, once the disk is free.
    explicit DiskSyncer(std::chrono::milliseconds period = std::chrono::seconds(1));
    /// Brings everything to the disk and waits for that, but no longer than `patience`: the thread is then
    /// left to itself, and what was written is with the system.
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
    struct Work;

    Work &started();

    std::shared_ptr<Work> m_work; // with the thread, which may outlive this
    std::future<void> m_ended; // of the thread, which begins with the first file
};
