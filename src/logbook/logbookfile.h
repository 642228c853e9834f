#pragma once

#include "logbook/logbookbatch.h"

#include <QDate>

#include <memory>

class QSqlDatabase;
class QSqlError;
class QSqlQuery;
class QTemporaryDir;

/// The file `logbook.sqlite` in a folder, and its dated copies. Waits for the disk: it is made, used and
/// destroyed in one thread that may. A file that is damaged is set aside under another name and made anew
/// from the newest copy that is whole; one that can't be written is read from a copy of its own.
class LogbookFile {
public:
    static constexpr int backupsKept = 5;

    explicit LogbookFile(const QString &folder);
    ~LogbookFile();
    LogbookFile(const LogbookFile &) = delete;
    LogbookFile &operator=(const LogbookFile &) = delete;

    /// Opens the file, which is made where there is none, and gives what it holds. To be called once, first.
    LogbookContent open();
    enum class Written {
        Yes,
        NotYet, ///< the disk is full or does not answer; worth another try
        Never ///< the file does not take it
    };
    /// Writes `batches`, in their order, as a whole or not at all. `reason`: the system's words where they
    /// were not written. What the user has changed is on the disk when this returns; what was only read may
    /// be lost with the system's power.
    Written write(const QVector<LogbookBatch> &batches, QString *reason);
    /// Another program has written since this was asked last, or since open().
    bool wasWrittenByOthers();
    /// What the file holds now. False where it can't be read.
    bool readAgain(LogbookContent *content) const;
    /// Copies all to the backup of `day`, in the place of one that there is, and removes the oldest beyond
    /// backupsKept. False where that was not possible; the others are then as they were.
    bool backUp(const QDate &day = QDate::currentDate());

    QString path() const; ///< of the file
    QStringList backups() const; ///< with their folder, newest first

private:
    enum class Fault { None, Damaged, Unavailable, Unreadable, Newer };

    bool canBeWritten() const;
    void openForWriting(LogbookContent *content);
    void openForReading(LogbookContent *content);
    Fault connectTo(const QString &path, LogbookContent *content);
    Fault prepare(QSqlDatabase &database, LogbookContent *content);
    Fault faultOf(const QSqlError &error);
    Fault check(const QSqlDatabase &database);
    void disconnect();
    bool copyAside();
    QString setAside() const;
    void restore(LogbookContent *content);
    Fault restoreFrom(const QString &source, LogbookContent *content);
    QSqlDatabase database() const;
    int dataVersion();

    QString m_folder;
    QString m_connection; // name of the open one; empty without
    std::unique_ptr<QSqlQuery> m_versionQuery; // of the open one; null until it is asked first
    QString m_reason; // of the newest fault
    std::unique_ptr<QTemporaryDir> m_copy; // where the file itself can't be opened for writing
    bool m_isReadOnly = false;
    int m_dataVersion = 0; // as SQLite counts what other programs write
};
