#pragma once

#include "files/filestamp.h"
#include "logbook/logbookrecording.h"

#include <QPair>
#include <QStringList>
#include <QVector>

#include <optional>

/// A row with what its reader wants to know of the file.
struct LogbookEntry {
    static constexpr int beginningLength = 4096; ///< bytes, unless the file is shorter

    /// Both are known, and not of the same recording, be it grown. A row of the same file tells nothing of
    /// that: what was in it may have been overwritten.
    bool holdsOtherThan(const LogbookEntry &other) const
    {
        return stamp.size >= beginningLength && other.stamp.size >= beginningLength && !beginning.isEmpty()
            && !other.beginning.isEmpty() && beginning != other.beginning;
    }

    LogbookRecording recording;
    FileStamp stamp; ///< of the file as it was read
    QByteArray beginning; ///< a hash of the file's first bytes; empty while it is not read
};

/// A change of a logbook, in memory and in its file alike. Rows are known to the file by their files' names,
/// so that two programs may write the same one.
struct LogbookBatch {
    QVector<QPair<QString, QString>> renamed; ///< files of rows and what they are called now; done first
    QVector<QString> droppedFiles; ///< rows, by their files; dropped next
    QVector<LogbookPack> packs; ///< added, or changed where there is one with the id
    QVector<qint64> droppedPacks;
    QVector<LogbookEntry> assigned; ///< rows whose pack and note change, if isUsers; new ones are added
    QVector<LogbookEntry>
        read; ///< rows whose figures and all else change; such as are not there are not added
    std::optional<QStringList> folders;
    QVector<qint64> refused; ///< added

    bool isUsers = false; ///< it changes what only the user knows
};

/// All that the file of a logbook holds, and what is to be said of it.
struct LogbookContent {
    QVector<LogbookPack> packs;
    QVector<LogbookEntry> entries;
    QStringList folders;
    QVector<qint64> refused;
    bool isReadOnly = false;
    QString trouble; ///< why it can't be kept; empty where it can
    QString told; ///< what the user is told once: a damaged file was set aside
};
