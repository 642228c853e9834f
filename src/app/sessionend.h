#pragma once

#include <QObject>

#include <chrono>

class FileWriter;
class ListenedPorts;
class QWidget;
class UnsavedWindows;

/// The end of the user's session, or of the computer's: the shell closes as if the user had closed it, before
/// its displays, but nothing is asked and nothing waits for long. What is being written is finished, what was
/// received is read, and what no file holds is written to one. A session that asks whether all is kept may go
/// on: then all is kept and the program goes on, too. One a process.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    /// All outlive this.
    struct Parts {
        FileWriter *writer;
        UnsavedWindows *unsaved;
        ListenedPorts *ports;
    };
    SessionEnd(QWidget *shell, const Parts &parts);
    ~SessionEnd() override;

    /// Closes the shell, whatever is open above it; returns when it is closed. Harmless when called from
    /// within.
    void closeShell();
    /// The process ends without another event: what no file holds is written to one, unless the shell is
    /// closed.
    void rescueAtOnce();
    bool eventFilter(QObject *object, QEvent *event) override;

public slots:
    /// Closes the shell and ends the program.
    void end();

private slots:
    void onCommitData();
    void onAboutToQuit();

private:
    void waitForFiles(std::chrono::milliseconds time);

    QWidget *m_shell;
    Parts m_parts;
    bool m_ending = false;
};
