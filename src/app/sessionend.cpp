#include "app/sessionend.h"

#include "devices/listenedports.h"
#include "documents/filewriter.h"
#include "documents/unsavedwindows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <utility>

namespace {

// The disk may not answer, or the file be large. Nothing of a recording hangs on it: what no other file holds
// is rescued afterwards. Windows calls a program that takes longer than five seconds one that hangs.
constexpr std::chrono::seconds savingTime(3);
constexpr std::chrono::seconds rescueTime(10); // there is no other copy
constexpr int lookTime = 50; // ms

// As if answered with Cancel. A box that does not let itself be closed is no reason to stay.
void dismissDialogs()
{
    while (QWidget *dialog = QApplication::activeModalWidget()) {
        if (!dialog->close())
            dialog->hide();
        if (QApplication::activeModalWidget() == dialog)
            return;
    }
}

SessionEnd *theSessionEnd = nullptr;

void rescueAtExit()
{
    if (theSessionEnd)
        theSessionEnd->rescueAtOnce();
}

} // namespace

// The toolkit's own way closes the displays before the shell is asked. Where the screen or the session's
// manager dies, it calls exit() out of the event loop.
SessionEnd::SessionEnd(QWidget *shell, const Parts &parts)
    : QObject(shell)
    , m_shell(shell)
    , m_parts(parts)
{
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    connect(
        qApp, SIGNAL(commitDataRequest(QSessionManager&)), this, SLOT(onCommitData()), Qt::DirectConnection);
    connect(qApp, SIGNAL(aboutToQuit()), this, SLOT(onAboutToQuit()));
    qApp->installEventFilter(this);
    theSessionEnd = this;
    static const int registered = std::atexit(rescueAtExit);
    Q_UNUSED(registered)
}

SessionEnd::~SessionEnd()
{
    theSessionEnd = nullptr;
}

// Another program may yet call the log-out off, and a desktop that saves its session asks the same.
void SessionEnd::onCommitData()
{
    if (m_ending)
        return;
    m_parts.unsaved->rescueAll();
    waitForFiles(savingTime);
}

// The word that the session's manager has at last; the toolkit would close windows in the order of their
// making.
bool SessionEnd::eventFilter(QObject *object, QEvent *event)
{
    if (object == qApp && event->type() == QEvent::Quit)
        closeShell();
    return false;
}

// On Windows the process ends with what is done here.
void SessionEnd::onAboutToQuit()
{
    if (m_shell->isVisible())
        closeShell();
}

void SessionEnd::rescueAtOnce()
{
    if (m_shell->isVisible())
        m_parts.unsaved->rescueAtOnce();
}

void SessionEnd::end()
{
    closeShell();
    QCoreApplication::quit();
}

// Closing by close() does nothing while the shell asks what its closing makes it ask.
void SessionEnd::closeShell()
{
    if (std::exchange(m_ending, true))
        return;
    m_parts.unsaved->holdAll();
    dismissDialogs();
    waitForFiles(savingTime);
    m_parts.writer->cancel();
    m_parts.ports->readRest();
    m_parts.ports->closeAll();
    m_parts.unsaved->rescueAll();
    waitForFiles(rescueTime);
    m_parts.writer->cancel();
    m_parts.unsaved->releaseAll();
    QCloseEvent event;
    QCoreApplication::sendEvent(m_shell, &event);
    m_shell->hide();
}

void SessionEnd::waitForFiles(std::chrono::milliseconds time)
{
    const QDeadlineTimer deadline(time);
    QTimer look; // at the clock
    look.start(lookTime);
    while (m_parts.writer->isBusy() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
