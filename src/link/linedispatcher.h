#pragma once

#include "data/varnel3data.h"

#include <QString>

#include <memory>

class DeviceLink;
class ReaderHost;
class RecordingLog;
class RecordingSink;

/// Decides what becomes of the lines of one port: which recording a record belongs to, when a recording
/// starts and ends, when the device's clock is set. States: waiting (no recording) and recording.
class RecordingDispatcher {
public:
    /// `link` (whose lines these are) and `host` are not owned and outlive this.
    RecordingDispatcher(DeviceLink *link, ReaderHost *host);
    ~RecordingDispatcher();
    RecordingDispatcher(const RecordingDispatcher &) = delete;
    RecordingDispatcher &operator=(const RecordingDispatcher &) = delete;

    /// Handles one measurement or '!' line; any other is ignored. True when it says that the device's process
    /// has ended: the caller then calls endProcess() 250 ms later, once for each such line.
    bool processLine(const QString &line);
    /// Ends the recording and has the shell announce what the newest end letter said.
    void endProcess();
    /// Has the shell announce it, and nothing else: the port is about to be closed.
    void announceEnd();
    /// Ends the recording, if there is one, and waits for the next; the end letter is kept.
    void reset();
    /// One second has passed.
    void tick() { ++m_idleTicks; }
    void clearIdleTicks() { m_idleTicks = 0; }
    /// The next good line starts a new recording.
    bool isNewProcess() const { return m_newProcess; }
    /// A recording is on and the device was heard not long ago: its next good line continues it.
    bool isRecording() const;
    /// The window of the recording has gone. Its further records go to the log
    /// only, and the shell is told so once.
    void forgetChild() { m_child = nullptr; }

private:
    struct Previous {
        int mode = Varnel3Data::NoMode;
        int time = 0;
        int cellCount = 0;
        int cellType = Varnel3Data::noCellType;
    };

    bool parse(const QString &line);
    bool startsRecording() const;
    void startLog();
    void startRecording();
    void showRecord();
    void keepResistanceLine(const QString &line);
    bool takeEndLetter();
    bool processChanged() const;
    void finishRecording();
    void sendTimeOnce(QMap<QString, bool> *sent);

    DeviceLink *m_link; // not owned, outlives this
    ReaderHost *m_host; // not owned, outlives this
    RecordingSink *m_child = nullptr; // not owned; forgetChild() when it goes
    std::unique_ptr<RecordingLog> m_log;
    Varnel3Data m_record; // each line is parsed into it, so that what a dialect does not send carries over
    Previous m_previous;
    int m_idleTicks = 0; // seconds since the last good line
    int m_endType = Varnel3Data::Completed; // what endProcess() announces
    bool m_newProcess = true;
    bool m_unwatchedTold = false;
};
