#include "devices/deskreaderhost.h"

#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "desk/statusfacts.h"
#include "graph/mdigraphchild.h"
#include "link/recordinglog.h"

#include <QDir>
#include <QMessageBox>

DeskReaderHost::DeskReaderHost(
    QWidget *shellWindow, GraphWindows *graphWindows, WindowFiles *files, StatusFacts *statusFacts)
    : QObject(shellWindow)
    , shell(shellWindow)
    , graphs(graphWindows)
    , windowFiles(files)
    , facts(statusFacts)
{
    connect(this, SIGNAL(message(QString,int)), shell, SLOT(showMessageStatusBar(QString,int)));
}

RecordingWindow *DeskReaderHost::createWindow()
{
    MdiGraphChild *child = graphs->create();
    windowFiles->attach(child);
    const QString journal = windowFiles->fileOf(child);
    if (!journal.isEmpty())
        child->setTitleTip(tr("Journal: %1").arg(QDir::toNativeSeparators(journal)));
    return child;
}

std::unique_ptr<RecordingLog> DeskReaderHost::createLog(const QString &portName)
{
    facts->clear(StatusFacts::Unwatched, portName);
    emit recordingBegins(portName);
    return windowFiles->begin(portName);
}

bool DeskReaderHost::claimClock(const QString &portName, ClockMoment moment)
{
    QMap<QString, bool> &sent = moment == ProcessStart ? startTimeSent : endTimeSent;
    if (sent.contains(portName))
        return false;
    sent.insert(portName, true);
    return true;
}

void DeskReaderHost::showMessageStatusBar(const QString &text, int timeout)
{
    emit message(text, timeout);
}

void DeskReaderHost::portFailed(const QString &portName, const QString &text)
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

void DeskReaderHost::portLost(const QString &portName)
{
    facts->set(StatusFacts::Lost, portName);
    emit lost(portName);
}

void DeskReaderHost::recordingUnwatched(const QString &portName)
{
    facts->set(StatusFacts::Unwatched, portName);
}

// The windows of readers are those that createWindow() has made.
void DeskReaderHost::noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window)
{
    ends[portName] = {portName, last.processEnd(), last, QDateTime::currentDateTime(),
        static_cast<MdiGraphChild *>(window), window != nullptr};
}

void DeskReaderHost::announceEnd(const QString &portName)
{
    emit processEnds(ends.value(portName));
}

QObject *DeskReaderHost::processReceiver()
{
    return shell;
}

void DeskReaderHost::forgetFailure(const QString &portName)
{
    facts->clear(StatusFacts::Failing, portName);
    if (QMessageBox *box = boxes.take(portName))
        box->close();
}
