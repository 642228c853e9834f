#pragma once

#include "link/recordinglog.h"

#include <QByteArray>
#include <QDateTime>
#include <QElapsedTimer>

class DiskSyncer;
class JournalFolder;
class JournalNotices;

/// Writes one live recording to a data file of its own, each record handed to the system as it arrives. What the disk
/// does not take waits in memory, in order, and is tried again once a second with the lines that follow.
class RecordingJournal : public RecordingLog {
public:
    /// Creates the file. Folder, syncer and notices are not owned and outlive this.
    RecordingJournal(
        const JournalFolder &folder, DiskSyncer &syncer, JournalNotices &notices, const QString &portName);
    /// Ends the recording; a file of fewer than two records is removed.
    ~RecordingJournal() override;
    RecordingJournal(const RecordingJournal &) = delete;
    RecordingJournal &operator=(const RecordingJournal &) = delete;

    /// The file with its folder; the one that is tried for while it can't be created.
    QString fileName() const { return m_fileName; }

    void addRecord(const QString &line, const Varnel3Data &record) override;
    void addResistanceLine(const QString &line) override;

private:
    void append(const QByteArray &line);
    QByteArray recordLine(const QString &line, const Varnel3Data &record);
    bool create();
    void drain();
    void stall(const QString &reason);
    void takeWritten(int bytes);
    void tellOutcome(const QString &failure);

    const JournalFolder &m_folder;
    DiskSyncer &m_syncer;
    JournalNotices &m_notices;
    QString m_portName;
    QDateTime m_started;
    QString m_fileName;
    int m_attempt = 1; // at a free name
    int m_descriptor = -1;
    qint64 m_size = 0; // of the file, whole lines only
    QByteArray m_waiting; // whole lines that the disk has not taken
    bool m_stalled = false;
    QElapsedTimer m_lastTry;
    int m_records = 0;
};
