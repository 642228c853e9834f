#pragma once

#include "files/disk/disksyncer.h"
#include "journal/journal.h"
#include "journal/journalfolder.h"

#include <QMap>
#include <QObject>
#include <QSet>

#include <chrono>
#include <list>
#include <memory>

class QTimer;
class RecordingLog;
class Varnel3Data;

/// Keeps a journal of every live recording: makes their files, tidies the folder, tells at once what several
/// of them have to tell, looks after the files once a second and tries what a full disk has refused, be the
/// recording over or not. Outlives the logs that it gives out.
class JournalKeeper : public QObject {
    Q_OBJECT

public:
    /// Past this many bytes the user is told of the folder.
    static constexpr qint64 largeFolder = Q_INT64_C(1) << 30;

    /// Journals lie in `path`; `period` is the time between two looks after them.
    explicit JournalKeeper(const QString &path, QObject *parent = nullptr,
        std::chrono::milliseconds period = std::chrono::seconds(1));
    ~JournalKeeper() override;

    /// A journal for a recording that starts now on `portName`; its file is
    /// made at once where the disk allows.
    std::unique_ptr<RecordingLog> create(const QString &portName);
    /// File of the newest recording of `portName` in this run of the program; empty without one.
    QString currentFile(const QString &portName) const { return m_files.value(portName); }
    /// Whether `fileName`, a journal of this run, is there with all that its recording has received so far.
    bool holdsAll(const QString &fileName) const;
    const JournalFolder &folder() const { return m_folder; }
    /// For other files that must not make the user wait for the disk.
    DiskSyncer &syncer() { return m_syncer; }
    /// Removes journals of fewer than two records, and discards those last written more than
    /// `maxAgeDays` ago (below 1: none).
    void tidy(int maxAgeDays);

signals:
    /// The disk takes no more. Said once until resumed(), however many recordings it concerns.
    void stalled(const QString &reason);
    void resumed();
    /// A running recording's `fileName` was removed or replaced; its lines are written anew to `newName`.
    void replaced(const QString &fileName, const QString &newName);
    /// The first record of a recording of `portName` is in its journal.
    void began(const QString &fileName, const QString &portName, const Varnel3Data &record);
    /// No more lines come into a journal that began; it is complete once the disk has taken it.
    void ended(const QString &fileName);
    /// The same, and it held too little for a file: there is none any more.
    void discarded(const QString &fileName);
    /// The journals take more than largeFolder. Said once.
    void folderLarge(const QString &path, qint64 bytes);

private slots:
    void lookAfterFiles();
    void lookAtSize();

private:
    void takeStall(const Journal &journal, const QString &reason);
    void takeReplacement(const QString &fileName, const QString &newName);

    JournalFolder m_folder;
    DiskSyncer m_syncer;
    QMap<QString, QString> m_files; // by port
    std::list<Journal> m_journals; // of recordings, and of ended ones while lines wait
    QTimer *m_round; // child; runs while a journal is open
    QSet<QString> m_incomplete; // journals that lack lines, for now or for good
    int m_stalled = 0; // journals that wait for the disk
    bool m_largeTold = false;
};
