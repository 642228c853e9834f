#pragma once

class QString;

/// What the journal of a recording has to tell.
class JournalNotices {
public:
    virtual ~JournalNotices() = default;

    /// The disk does not take what arrives; it is kept in memory and tried again. Said once until it does.
    virtual void journalStalled(const QString &fileName, const QString &reason) = 0;
    /// The file was removed or replaced while it was written; all of it is written anew to `newName`, which
    /// may be the same.
    virtual void journalReplaced(const QString &fileName, const QString &newName) = 0;
    /// All that was kept back is written, or given up because the program ends.
    /// `complete`: the file holds all that came.
    virtual void journalResumed(const QString &fileName, bool complete) = 0;
};
