#pragma once

#include "journal/journalsink.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

class DiskSyncer;
class JournalFolder;
class JournalNotices;

/// The file of one live recording: each line is handed to the system as it comes. What the disk does not take
/// waits in memory, in order, until retry() gets it written, be it after the recording's end. A file that is
/// removed or replaced meanwhile lives on for who has it open: it is copied to a new one.
class JournalWriter : public JournalSink {
public:
    /// Creates the file. Folder, syncer and notices are not owned and outlive this.
    JournalWriter(
        const JournalFolder &folder, DiskSyncer &syncer, JournalNotices &notices, const QString &portName);
    /// Tries what waits a last time and closes the file.
    ~JournalWriter() override;
    JournalWriter(const JournalWriter &) = delete;
    JournalWriter &operator=(const JournalWriter &) = delete;

    /// The file with its folder; the one that is tried for while it can't be created.
    QString fileName() const { return m_fileName; }

    void append(const QByteArray &line) override;
    /// Tries what the disk has refused again, and looks after the file; to be called once a second.
    void retry();
    /// No more lines come: the file is closed once all of them are written.
    void finish() override;
    /// No more lines come, and what came is not worth a file: it is removed.
    void discard() override;
    /// The file is closed.
    bool isDone() const { return m_done; }

private:
    bool create();
    void drain();
    bool isGone() const;
    void abandonFile();
    bool restore();
    int write(const QByteArray &lines);
    bool isAllWritten() const { return m_lost < 0 && m_waiting.isEmpty(); }
    void tellOutcome();
    void stall(const QString &reason);
    void close();

    const JournalFolder &m_folder;
    DiskSyncer &m_syncer;
    JournalNotices &m_notices;
    QString m_portName;
    QDateTime m_started;
    QString m_fileName;
    int m_attempt = 1; // at a free name
    int m_descriptor = -1;
    qint64 m_size = 0; // of the file, whole lines only
    int m_lost = -1; // the file that has lost its name, until all of it is in the new one
    qint64 m_lostSize = 0;
    QString m_failure; // of the last write
    QByteArray m_waiting; // whole lines that the disk has not taken
    bool m_stalled = false;
    bool m_complete = true; // no line was given up and no sync has failed
    bool m_finished = false;
    bool m_done = false;
};
