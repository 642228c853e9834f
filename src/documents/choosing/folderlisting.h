#pragma once

#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QVector>

/// What one row of a file dialog is.
struct FolderEntry {
    QString name;
    bool isFolder = false;
};

/// Which part of which folder is shown, and how.
struct FolderQuestion {
    enum Column { Name, Size, Type, Modified, Length };

    QString folder; ///< empty: the drives
    QStringList endings; ///< of the files, with their points; empty: all files
    bool hidden = false; ///< show what is hidden, too
    Column column = Name; ///< that sorts
    bool descending = false;
};

struct FolderListing {
    QVector<FolderEntry> entries; ///< sorted
    QHash<QString, int> rows; ///< of their names
    /// -1: there is no such name.
    int rowOf(const QString &name) const { return rows.value(name, -1); }
    QStringList names; ///< sorted by their characters alone
    QString longest; ///< of the names
};

/// Lists a folder, however large: only sorting by other columns than the name asks for each file, and only
/// that by length reads them. Waits for the disk.
FolderListing listFolder(const FolderQuestion &question);

/// Where the name of an entry leads to.
QString pathInFolder(const QString &folder, const QString &name);
/// "acp File", "Folder", as Qt's file dialogs have it.
QString typeText(const QString &name, bool isFolder);

/// What the system knows of a file, and what it holds.
struct FileDetails {
    bool isWritable = false;
    qint64 size = 0; ///< bytes
    QDateTime modified;
    QString label; ///< as recordLabel() has it
    int seconds = -1; ///< as recordingLength() has it, where that was asked for
};

/// Waits for the disk.
FileDetails fileDetails(const QString &path, bool withLength);
