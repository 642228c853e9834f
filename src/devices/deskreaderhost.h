#pragma once

#include "devices/endedprocess.h"
#include "link/readerhost.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSet>

class LiveWindows;
class QMessageBox;
class StatusFacts;

/// Answers what the serial readers ask of the shell: graph windows and their journals, clocks, and what the
/// user is told about ports.
class DeskReaderHost : public QObject, public ReaderHost {
    Q_OBJECT

public:
    /// `mainWindow` is the parent of message boxes and what readers call by name, as the program's interfaces
    /// have it: endProcess(int) and endProcessMessage(). All outlive this.
    DeskReaderHost(QWidget *mainWindow, LiveWindows *windows, StatusFacts *facts);

    RecordingWindow *createWindow() override;
    std::unique_ptr<RecordingLog> createLog(const QString &portName) override;
    bool claimClock(const QString &portName, ClockMoment moment) override;
    void showMessageStatusBar(const QString &message, int timeout) override;
    void portFailed(const QString &portName, const QString &text) override;
    void portLost(const QString &portName) override;
    void recordingUnwatched(const QString &portName) override;
    void noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window) override;
    void announceEnd(const QString &portName) override;
    QObject *processReceiver() override;

    /// What was said about the failure of `portName` is out of date: it works,
    /// or is gone, or no longer wanted.
    void forgetFailure(const QString &portName);

signals:
    void message(const QString &text, int timeout);
    /// The device of `portName` went away; its reader is still being run.
    void lost(const QString &portName);
    /// The window's endProcess(int) comes next and is about `process`.
    void processEnds(const EndedProcess &process);
    /// The window's endProcessMessage() comes next, from `portName`.
    void recordingBegins(const QString &portName);

private:
    QWidget *m_mainWindow;
    LiveWindows *m_windows;
    StatusFacts *m_facts;
    QMap<QString, QPointer<QMessageBox>> m_boxes; // one a failing port
    QMap<QString, EndedProcess> m_ends; // the newest of each port
    QSet<QString> m_startTimeSent; // ports; never cleared
    QSet<QString> m_endTimeSent;
};
