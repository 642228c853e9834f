#pragma once

#include "files/disk/lockedfile.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <functional>

class DiskSyncer;
class JournalFolder;

/// The file of one live recording: each line is handed to the system as it comes. What the disk does not take
/// waits in memory, in order, until retry() gets it written, be it after the recording's end. A file that is
/// removed or replaced meanwhile lives on for who has it open: it is copied to a new one.
class Journal {
public:
    /// Who hears of the file; called from inside the functions below, the constructor and the destructor.
    struct Listener {
        /// isStalled() has changed. `reason`: why the disk does not take what arrives; empty when all that
        /// was kept back is written, or given up because the program ends.
        std::function<void(const Journal &journal, const QString &reason)> stalled;
        /// The file was removed or replaced while it was written; all of it is written anew to `newName`,
        /// which may be the same.
        std::function<void(const QString &fileName, const QString &newName)> replaced;
    };

    /// Creates the file. Folder and syncer are not owned and outlive this.
    Journal(
        const JournalFolder &folder, DiskSyncer &syncer, const QString &portName, const Listener &listener);
    /// Tries what waits a last time and closes the file.
    ~Journal();
    Journal(const Journal &) = delete;
    Journal &operator=(const Journal &) = delete;

    /// The file with its folder; the one that is tried for while it can't be created.
    QString fileName() const { return m_fileName; }

    /// Takes a line without its end.
    void append(const QByteArray &line);
    /// Tries what the disk has refused again, and looks after the file; to be called once a second.
    void retry();
    /// No more lines come: the file is closed once all of them are written.
    void finish();
    /// No more lines come, and what came is not worth a file: it is removed.
    void discard();

    /// Lines wait for the disk.
    bool isStalled() const { return m_state == State::Stalled || m_state == State::Ending; }
    /// No line was given up, and no sync has failed.
    bool isComplete() const { return m_complete; }
    bool isClosed() const { return m_state == State::Closed; }

private:
    enum class State {
        Writing, // what comes goes to the system at once
        Stalled, // what comes waits behind what the disk did not take
        Ending, // the same, and no more comes
        Closed
    };

    void create();
    void drain();
    bool isGone() const;
    void abandonFile();
    bool restore();
    int write(const QByteArray &lines);
    bool isAllWritten() const { return m_lost == noDescriptor && m_waiting.isEmpty(); }
    void takeOutcome();
    void stall(const QString &reason);
    void close();

    const JournalFolder &m_folder;
    DiskSyncer &m_syncer;
    Listener m_listener;
    QString m_portName;
    QDateTime m_started;
    QString m_fileName;
    State m_state = State::Writing;
    int m_descriptor = noDescriptor;
    qint64 m_size = 0; // of the file, whole lines only
    int m_lost = noDescriptor; // the file that has lost its name, until all of it is in the new one
    qint64 m_lostSize = 0;
    QString m_failure; // of the last write that did not take all
    QByteArray m_waiting; // whole lines that the disk has not taken
    bool m_complete = true;
};
