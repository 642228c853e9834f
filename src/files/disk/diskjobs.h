#pragma once

#include <QStringList>

#include <functional>
#include <memory>

class QObject;

/// Work on disks that may not answer, each in a thread of its own that nobody waits for: one that hangs in
/// the system is left to itself, at the end of the program, too.
class DiskJobs {
public:
    /// `receiver` outlives this; results come in its thread.
    explicit DiskJobs(QObject *receiver);
    /// What has not come by then never comes.
    ~DiskJobs();
    DiskJobs(const DiskJobs &) = delete;
    DiskJobs &operator=(const DiskJobs &) = delete;

    /// Calls `work` in its thread, and then `done` with what it returned. `work` holds copies only.
    template <typename Work, typename Done>
    void run(Work work, Done done)
    {
        start([work, done] {
            const auto result = work();
            return std::function<void()>([done, result] { done(result); });
        });
    }

    /// Those of `paths` whose disks have not answered within `milliseconds`.
    static QStringList silent(const QStringList &paths, int milliseconds);

private:
    struct Shared;

    void start(const std::function<std::function<void()>()> &work);

    std::shared_ptr<Shared> m_shared; // with the threads
};
