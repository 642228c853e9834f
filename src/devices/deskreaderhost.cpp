#include "devices/deskreaderhost.h"

#include "desk/livewindows.h"
#include "desk/statusfacts.h"
#include "link/recordinglog.h"
#include "widgets/warningbox.h"

#include <QMessageBox>

DeskReaderHost::DeskReaderHost(QWidget *mainWindow, LiveWindows *windows, StatusFacts *facts)
    : QObject(mainWindow)
    , m_mainWindow(mainWindow)
    , m_windows(windows)
    , m_facts(facts)
{
}

RecordingWindow *DeskReaderHost::createWindow()
{
    return m_windows->create();
}

std::unique_ptr<RecordingLog> DeskReaderHost::createLog(const QString &portName)
{
    m_facts->clear(StatusFacts::Unwatched, portName);
    emit recordingBegins(portName);
    return m_windows->beginLog(portName);
}

bool DeskReaderHost::claimClock(const QString &portName, ClockMoment moment)
{
    QSet<QString> &sent = moment == ProcessStart ? m_startTimeSent : m_endTimeSent;
    if (sent.contains(portName))
        return false;
    sent.insert(portName);
    return true;
}

void DeskReaderHost::showMessageStatusBar(const QString &text, int timeout)
{
    emit message(text, timeout);
}

void DeskReaderHost::portFailed(const QString &portName, const QString &text)
{
    m_facts->set(StatusFacts::Failing, portName, text);
    QPointer<QMessageBox> &box = m_boxes[portName];
    if (!box)
        box = createNotice(m_mainWindow, "portFailed", QMessageBox::Warning, tr("Error"), text);
    box->setText(text);
    box->show();
}

void DeskReaderHost::portLost(const QString &portName)
{
    m_facts->set(StatusFacts::Lost, portName);
    emit lost(portName);
}

void DeskReaderHost::recordingUnwatched(const QString &portName)
{
    m_facts->set(StatusFacts::Unwatched, portName);
}

void DeskReaderHost::noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window)
{
    m_ends[portName] = {portName, last.processEnd(), last, QDateTime::currentDateTime(),
        LiveWindows::windowOf(window), window != nullptr};
}

void DeskReaderHost::announceEnd(const QString &portName)
{
    emit processEnds(m_ends.value(portName));
}

QObject *DeskReaderHost::processReceiver()
{
    return m_mainWindow;
}

void DeskReaderHost::forgetFailure(const QString &portName)
{
    m_facts->clear(StatusFacts::Failing, portName);
    if (QMessageBox *box = m_boxes.take(portName))
        box->close();
}
