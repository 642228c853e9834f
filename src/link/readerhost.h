#pragma once

#include <QMap>
#include <QString>

#include <memory>

class QObject;
class RecordingLog;
class RecordingSink;
class Varnel3Data;

/// What a serial reader asks of the shell.
class ReaderHost {
public:
    virtual ~ReaderHost() = default;

    /// A new graph window, placed, numbered and current, for a recording that starts; never null.
    virtual RecordingSink *createRecording() = 0;
    /// The keeper of a recording that starts on `portName`; null where none is kept.
    virtual std::unique_ptr<RecordingLog> createRecordingLog(const QString &portName) = 0;
    /// Local date and time as the devices take it, "ss:mm:HH:dd:MM:yy".
    virtual QString currentTimeText() const = 0;
    /// Ports whose clock was set at the start of a process in this run of the program; never cleared.
    virtual QMap<QString, bool> &startTimeSent() = 0;
    /// The same for the end of a process.
    virtual QMap<QString, bool> &endTimeSent() = 0;
    /// Shows `message` in the status bar for `timeout` ms; 0 keeps it until the next one.
    virtual void showMessageStatusBar(const QString &message, int timeout) = 0;
    /// A port can't be opened: tell the user without waiting for an answer.
    virtual void portFailed(const QString &portName, const QString &text) = 0;
    /// The device of an open port went away; the reader has closed itself.
    virtual void portLost(const QString &portName) = 0;
    /// Lines of `portName` find no window because the user closed it; said once a recording.
    virtual void recordingUnwatched(const QString &portName) = 0;
    /// A line with an end letter has come on `portName`; `window` shows it, null where the user closed it.
    virtual void noteEnd(const QString &portName, const Varnel3Data &last, RecordingSink *window) = 0;
    /// A queued endProcess(int) comes next, about the end that was noted last on `portName`.
    virtual void announceEnd(const QString &portName) = 0;
    /// Receiver of the queued calls by name endProcess(int) and endProcessMessage().
    virtual QObject *processReceiver() = 0;
};
