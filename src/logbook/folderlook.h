#pragma once

#include "logbook/logbookbatch.h"

#include <QHash>
#include <QSet>

/// A row's file as it was read.
struct KnownFile {
    FileStamp stamp;
    QByteArray beginning; ///< as LogbookEntry has it
};

/// What is asked of a folder.
struct LookQuestion {
    QString folder; ///< '/' between names, none at the end
    bool holdsJournals = false; ///< files in it may be under way, and are then passed over
    QHash<QString, KnownFile> known; ///< of the rows, by file
    QMultiHash<QByteArray, QString> beginnings; ///< files of the rows, by the hash of their first bytes
    QSet<QString> gone; ///< files of rows that were gone
    QSet<QString> live; ///< files of rows that this program records
    QSet<qint64> refused; ///< keys of files that hold no recording
};

/// A file that is to be read.
struct FoundFile {
    QString file;
    FileStamp stamp;
    QByteArray beginning;
    bool isOther = false; ///< it does not begin with what was read for the row of this name
};

/// What a folder answers.
struct FolderNews {
    QString folder;
    qint64 modified = 0; ///< of the folder, ms since 1970; 0 where it is not there
    bool isUnsettled = false; ///< a file in it was written just now and may grow, and nobody will tell
    QVector<FoundFile> found; ///< without a row, or changed since they were read
    QVector<QPair<QString, QString>> moved; ///< files of rows and where they are now
    QStringList gone; ///< files of rows that are not there
    QStringList back; ///< files of rows that were gone and are there again
    QVector<qint64> refused; ///< keys of files that hold no recording, by their beginnings
};

// All of these wait for the disk.

/// When the folder was changed last, ms since 1970; 0 where it is not there.
qint64 folderTime(const QString &folder);
/// Looks at the names in a folder, and at the first bytes of the data files that are new or changed.
FolderNews lookThrough(const LookQuestion &question);
/// The same for files by their names, wherever they are: those found, gone and back.
FolderNews lookAt(const LookQuestion &question, const QStringList &files);

/// Names a file as it is now, by name and stamp, in few bytes.
qint64 refusalKey(const QString &file, const FileStamp &stamp);
