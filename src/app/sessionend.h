#pragma once

#include <QObject>

class FileWriter;
class QSessionManager;
class QWidget;

/// The end of the user's session: what is being written is finished first, and the shell closes as if the
/// user had closed it, before its displays. Where it stays open, the session is asked to go on.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    /// Both outlive this.
    SessionEnd(QWidget *shell, FileWriter *writer);

    /// Closes the shell and waits for what is to be written first. False when it stays open.
    bool closeShell();

private slots:
    void onCommitData(QSessionManager &manager);

private:
    void waitForFiles();

    QWidget *m_shell;
    FileWriter *m_writer;
};
