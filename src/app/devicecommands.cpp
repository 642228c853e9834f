#include "app/devicecommands.h"

#include "graph/mdigraphchild.h"
#include "link/serialreader.h"

#include <QDateTime>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int betweenCommands = 500; // ms

/// Reads ports and draws on, but leaves the user's input waiting: nobody closes a window or sends a second command
/// between the two halves of the first.
void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, SLOT(quit()));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

namespace DeviceCommands {

QString currentTimeText()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("ss:mm:HH:dd:MM:yy"));
}

bool stopProcess(MdiGraphChild *active, const QVector<SerialReader *> &readers)
{
    if (active && active->stopProcess())
        return true;
    if (readers.size() != 1)
        return false;
    readers.first()->sendCommand(QStringLiteral("#STOP\r\n"));
    return true;
}

void setTime(const QVector<SerialReader *> &readers)
{
    // A port may be unplugged during a wait.
    const QVector<QPointer<SerialReader>> targets(readers.cbegin(), readers.cend());
    for (const QPointer<SerialReader> &target : targets) {
        if (target)
            target->sendCommand(QStringLiteral("#TIME!") + currentTimeText() + QStringLiteral("\r\n"));
        wait(betweenCommands);
        if (target)
            target->sendCommand(QStringLiteral("#BIB_!200\r\n"));
    }
}

} // namespace DeviceCommands
