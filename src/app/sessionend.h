#pragma once

#include <QObject>

#include <chrono>

class FileWriter;
class ListenedPorts;
class QWidget;
class UnsavedWindows;

/// The end of the user's session, or of the computer's: the shell closes as if the user had closed it, before
/// its displays, but nothing is asked and nothing waits for long. What is being written is finished, what was
/// received is read, and what no file holds is written to one.
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

    /// Closes the shell, whatever is open above it; returns when it is closed. Harmless when called from
    /// within.
    void closeShell();

public slots:
    /// Closes the shell and ends the program.
    void end();

private slots:
    void onCommitData();

private:
    void waitForFiles(std::chrono::milliseconds time);

    QWidget *m_shell;
    Parts m_parts;
    bool m_ending = false;
};
