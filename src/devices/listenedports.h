#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

struct PortInfo;
class LiveWindows;
class PortQuestions;
class PortRetries;
class SerialReader;
class DeskReaderHost;
class StatusFacts;
class QWidget;

/// The serial readers, one a listened port: when they come and go, and what the status bar says about it.
class ListenedPorts : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of readers and boxes. All outlive this.
    ListenedPorts(QWidget *window, DeskReaderHost *host, const LiveWindows *windows, StatusFacts *facts);
    ~ListenedPorts() override;

    const QVector<SerialReader *> &readers() const { return m_readers; }
    QStringList portNames() const;
    /// A process is being recorded on any of them.
    bool isRecording() const;
    /// The reader when exactly one port is listened on, else null.
    SerialReader *onlyReader() const { return m_readers.size() == 1 ? m_readers.first() : nullptr; }
    SerialReader *readerFor(const QString &portName) const;
    bool isListening() const { return m_listening; }
    void setListening(bool on) { m_listening = on; }
    QString paused() const { return m_pendingPort; }

    /// Notes the "COM" ports that exist now: they are never treated as new.
    void noteStartupPorts();
    void startRecording();
    void stopRecording();
    /// Pauses the port that feeds the current window, or resumes the paused one.
    void pauseOrResume();
    /// After the preferences: listens on `ports` and no other.
    void synchronise(const QStringList &ports);
    /// Handles what has been sent until now and waits in the system.
    void readRest();
    /// At exit: closes every port and opens none of them again, without a word.
    void closeAll();

public slots:
    /// A port of the host came or went.
    void arrive(const PortInfo &port);
    void leave(const PortInfo &port);

signals:
    void message(const QString &text, int timeout);
    /// Which ports are listened on has changed.
    void changed();

private slots:
    void onAnswered(const QString &portName, bool remember);
    void onRetry(const QString &portName, bool tell);
    void onLost(const QString &portName);

private:
    enum Failure { Tell, Ignore };

    /// Creates and opens the reader of `portName`; false when it can't be opened. A failure that is told is
    /// followed by further attempts, until one succeeds or the port goes or is no longer wanted.
    bool listenOn(const QString &portName, Failure failure = Tell);
    /// Closes the port of the reader and takes it out of the list; it goes later, for it may be running.
    void remove(SerialReader *reader);
    /// No more attempts on `portName`, and no word of its trouble.
    void giveUp(const QString &portName);
    void forgetTroubleExcept(const QStringList &wanted);
    void pause();
    void resume();
    void forgetPause();
    void tellChanged();

    QWidget *m_window;
    DeskReaderHost *m_host;
    const LiveWindows *m_windows;
    StatusFacts *m_facts;
    PortQuestions *m_questions;
    PortRetries *m_retries;
    QVector<SerialReader *> m_readers;
    QString m_pendingPort; // of the paused graph window, which is not open; empty when none
    QStringList m_startupPorts;
    bool m_listening = false;
};
