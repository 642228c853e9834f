#include "devices/shellreaderhost.h"

#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "desk/statusfacts.h"
#include "graph/mdigraphchild.h"
#include "link/recordinglog.h"

#include <QDir>
#include <QMessageBox>

ShellReaderHost::ShellReaderHost(
    QWidget *shellWindow, GraphWindows *graphWindows, WindowFiles *files, StatusFacts *statusFacts)
    : QObject(shellWindow)
    , shell(shellWindow)
    , graphs(graphWindows)
    , windowFiles(files)
    , facts(statusFacts)
{
    connect(this, SIGNAL(message(QString,int)), shell, SLOT(showMessageStatusBar(QString,int)));
}

RecordingWindow *ShellReaderHost::createWindow()
{
    MdiGraphChild *child = graphs->create();
    windowFiles->attach(child);
    const QString journal = windowFiles->fileOf(child);
    if (!journal.isEmpty())
        child->setTitleTip(tr("Journal: %1").arg(QDir::toNativeSeparators(journal)));
    return child;
}

std::unique_ptr<RecordingLog> ShellReaderHost::createLog(const QString &portName)
{
    facts->clear(StatusFacts::Unwatched, portName);
    emit recordingBegins(portName);
    return windowFiles->begin(portName);
}

bool ShellReaderHost::claimClock(const QString &portName, ClockMoment moment)
{
    QMap<QString, bool> &sent = moment == ProcessStart ? startTimeSent : endTimeSent;
    if (sent.contains(portName))
        return false;
    sent.insert(portName, true);
    return true;
}

void ShellReaderHost::showMessageStatusBar(const QString &text, int timeout)
{
    emit message(text, timeout);
}

void ShellReaderHost::portFailed(const QString &portName, const QString &text)
{
    facts->set(StatusFacts::Failing, portName, text);
    QPointer<QMessageBox> &box = boxes[portName];
    if (!box) {
        box = new QMessageBox(QMessageBox::Warning, tr("Error"), text, QMessageBox::Ok, shell);
        box->setObjectName(QStringLiteral("portFailed"));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setTextFormat(Qt::PlainText);
        box->setModal(false);
    }
    box->setText(text);
    box->show();
}

void ShellReaderHost::portLost(const QString &portName)
{
    facts->set(StatusFacts::Lost, portName);
    emit lost(portName);
}

void ShellReaderHost::recordingUnwatched(const QString &portName)
{
    facts->set(StatusFacts::Unwatched, portName);
}

// The windows of readers are those that createWindow() has made.
void ShellReaderHost::noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window)
{
    ends[portName] = {portName, last.processEnd(), last, QDateTime::currentDateTime(),
        static_cast<MdiGraphChild *>(window), window != nullptr};
}

void ShellReaderHost::announceEnd(const QString &portName)
{
    emit processEnds(ends.value(portName));
}

QObject *ShellReaderHost::processReceiver()
{
    return shell;
}

void ShellReaderHost::forgetFailure(const QString &portName)
{
    facts->clear(StatusFacts::Failing, portName);
    if (QMessageBox *box = boxes.take(portName))
        box->close();
}
