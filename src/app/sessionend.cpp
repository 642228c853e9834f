#include "app/sessionend.h"

#include "documents/filewriter.h"

#include <QApplication>
#include <QEventLoop>
#include <QSessionManager>
#include <QWidget>

// The toolkit's own way closes the displays before the shell is asked.
SessionEnd::SessionEnd(QWidget *shell, FileWriter *writer)
    : QObject(shell)
    , m_shell(shell)
    , m_writer(writer)
{
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    connect(qApp,
        SIGNAL(commitDataRequest(QSessionManager&)), this,
            SLOT(onCommitData(QSessionManager&)), Qt::DirectConnection);
}

// A session that allows no question does not wait for an answer either: only files are finished.
void SessionEnd::onCommitData(QSessionManager &manager)
{
    waitForFiles();
    if (!manager.allowsInteraction())
        return;
    const bool closed = closeShell();
    manager.release();
    if (!closed)
        manager.cancel();
}

bool SessionEnd::closeShell()
{
    waitForFiles();
    // As if answered with Cancel: dialogs that ask what the session's end asks anew.
    while (QWidget *dialog = QApplication::activeModalWidget())
        if (!dialog->close())
            return false;
    m_shell->close();
    waitForFiles(); // that the user wants to be saved, after which it closes
    return !m_shell->isVisible();
}

void SessionEnd::waitForFiles()
{
    while (m_writer->isBusy()) {
        QEventLoop loop;
        connect(m_writer, SIGNAL(finished(bool)), &loop, SLOT(quit()));
        loop.exec();
    }
}
