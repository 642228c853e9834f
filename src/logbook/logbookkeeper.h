#pragma once

#include "logbook/logbookbatch.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

/// The thread that reads and writes the file of a logbook, so that nobody else waits for its disk. What can't
/// be written waits here and is tried again, what the user has changed first (LogbookQueue). Used from one
/// other thread.
class LogbookKeeper {
public:
    /// What the end waits for a disk.
    struct Patience {
        std::chrono::milliseconds users{10000}; ///< more, while a disk is at what only the user knows
        std::chrono::milliseconds rest{3000}; ///< for what can be had again, and for the backup
    };
    /// What the user has changed is copied to a backup so long after it was written, or at the end.
    static constexpr std::chrono::seconds backupDelay{60};

    /// Who hears of it, in the thread that made this.
    struct Listener {
        std::function<void(const LogbookContent &content)> opened;
        std::function<void(const QString &reason)> stalled; ///< empty when all that waited is written
        std::function<void(const QString &reason)>
            refused; ///< of the user's changes one, or all from now on, is not kept
        std::function<void(const LogbookContent &content)>
            changed; ///< another program has written; all of this one's changes are in `content`
    };

    LogbookKeeper(const QString &folder, const Listener &listener);
    LogbookKeeper(const QString &folder, const Listener &listener, const Patience &patience);
    /// Writes what waits and waits for that, but not for ever: the thread is then left to itself.
    ~LogbookKeeper();
    LogbookKeeper(const LogbookKeeper &) = delete;
    LogbookKeeper &operator=(const LogbookKeeper &) = delete;

    /// Writes `batch` in its turn: what the user has changed at once, what was read with more of its kind.
    void write(const LogbookBatch &batch);
    /// Nothing waits.
    bool isIdle() const;
    /// Something waits that the user has changed.
    bool holdsUsers() const;

private:
    struct Work;

    QObject m_receiver; // of what the thread has to tell
    Patience m_patience;
    std::shared_ptr<Work> m_work; // with the thread, which may outlive this
};
