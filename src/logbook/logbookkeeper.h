#pragma once

#include "logbook/logbookbatch.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

/// The thread that reads and writes the file of a logbook, so that nobody else waits for its disk. What can't
/// be written waits here, in order, and is tried again. Used from one other thread.
class LogbookKeeper {
public:
    /// What the end waits for a disk.
    static constexpr std::chrono::seconds patience{3};
    /// What the user has changed is copied to a backup so long after it was written, or at the end.
    static constexpr std::chrono::seconds backupDelay{60};

    /// Who hears of it, in the thread that made this.
    struct Listener {
        std::function<void(const LogbookContent &content)> opened;
        std::function<void(const QString &reason)> stalled; ///< empty when all that waited is written
        std::function<void(const QString &reason)>
            refused; ///< of the user's changes one, or all from now on, is not kept
    };

    LogbookKeeper(const QString &folder, const Listener &listener);
    /// Writes what waits and waits for that, but no longer than `patience`: the thread is then left to
    /// itself.
    ~LogbookKeeper();
    LogbookKeeper(const LogbookKeeper &) = delete;
    LogbookKeeper &operator=(const LogbookKeeper &) = delete;

    /// Writes `batch` in its turn.
    void write(const LogbookBatch &batch);
    /// Nothing waits.
    bool isIdle() const;

private:
    struct Work;

    QObject m_receiver; // of what the thread has to tell
    std::shared_ptr<Work> m_work; // with the thread, which may outlive this
};
