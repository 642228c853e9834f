#pragma once

#include <QString>

#include <memory>

class QObject;
class RecordingLog;
class RecordingWindow;
class Varnel3Data;

/// What a serial reader asks of the shell.
class ReaderHost {
public:
    /// Of a process, at which its device's clock may be set.
    enum ClockMoment { ProcessStart, ProcessEnd };

    virtual ~ReaderHost() = default;

    /// A new graph window, placed, numbered and current, for a recording that starts; never null.
    virtual RecordingWindow *createWindow() = 0;
    /// The keeper of a recording that starts on `portName`; null where none is kept.
    virtual std::unique_ptr<RecordingLog> createLog(const QString &portName) = 0;
    /// Whether the clock of the device on `portName` is to be set now: true once for each port and moment in
    /// this run of the program.
    virtual bool claimClock(const QString &portName, ClockMoment moment) = 0;
    /// Shows `message` in the status bar for `timeout` ms; 0 keeps it until the next one.
    virtual void showMessageStatusBar(const QString &message, int timeout) = 0;
    /// A port can't be opened: tell the user without waiting for an answer.
    virtual void portFailed(const QString &portName, const QString &text) = 0;
    /// The device of an open port went away; the reader has closed itself.
    virtual void portLost(const QString &portName) = 0;
    /// Lines of `portName` find no window because the user closed it; said once a recording.
    virtual void recordingUnwatched(const QString &portName) = 0;
    /// A line with an end letter has come on `portName`; `window` shows it, null where the user closed it.
    virtual void noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window) = 0;
    /// A queued endProcess(int) comes next, about the end that was noted last on `portName`.
    virtual void announceEnd(const QString &portName) = 0;
    /// Receiver of the queued calls by name endProcess(int) and endProcessMessage().
    virtual QObject *processReceiver() = 0;
};
