#pragma once

#include "data/varnel3data.h"
#include "link/readerhost.h"

#include <QString>

#include <memory>

class DeviceLink;
class RecordingLog;
class RecordingWindow;

/// Decides what becomes of the lines of one port: which recording a record belongs to, when a recording
/// starts and ends, when the device's clock is set. States: waiting (no recording) and recording.
class LineDispatcher {
public:
    /// `link` (whose lines these are) and `host` are not owned and outlive this.
    LineDispatcher(DeviceLink *link, ReaderHost *host);
    ~LineDispatcher();
    LineDispatcher(const LineDispatcher &) = delete;
    LineDispatcher &operator=(const LineDispatcher &) = delete;

    /// Handles one measurement or '!' line; any other is ignored. True when it says that the device's process
    /// has ended: the caller then calls endProcess() 250 ms later, once for each such line.
    bool processLine(const QByteArray &line);
    /// Ends the recording and has the shell announce what the newest end letter said.
    void endProcess();
    /// Has the shell announce it, and nothing else: the port is about to be closed.
    void announceEnd();
    /// Ends the recording, if there is one, and waits for the next; the end letter is kept.
    void reset();
    /// One second has passed.
    void tick() { ++m_idleTicks; }
    /// The next good line starts a new recording.
    bool isNewProcess() const { return m_newProcess; }
    /// A recording is on and the device was heard not long ago: its next good line continues it.
    bool isRecording() const;
    /// The window of the recording has gone. Its further records go to the log
    /// only, and the shell is told so once.
    void forgetWindow() { m_window = nullptr; }

private:
    struct Previous {
        int mode = Varnel3Data::NoMode;
        int time = 0;
        int cellCount = 0;
        int cellType = Varnel3Data::noCellType;
    };

    bool parse(const QByteArray &line);
    bool startsRecording() const;
    void startLog();
    void startRecording();
    void showRecord();
    void keepResistanceLine(const QByteArray &line);
    bool takeEndLetter();
    bool processChanged(const Previous &previous) const;
    void finishRecording();
    void setClockOnce(ReaderHost::ClockMoment moment);

    DeviceLink *m_link; // not owned, outlives this
    ReaderHost *m_host; // not owned, outlives this
    RecordingWindow *m_window = nullptr; // not owned; forgetWindow() when it goes
    std::unique_ptr<RecordingLog> m_log;
    Varnel3Data m_record; // each line is parsed into it, so that what a dialect does not send carries over
    int m_idleTicks = 0; // seconds since the last good line
    int m_endType = Varnel3Data::Completed; // what endProcess() announces
    bool m_newProcess = true;
    bool m_unwatchedTold = false;
};
