#include "app/devicecommands.h"

#include "app/devicetargets.h"
#include "link/serialreader.h"

#include <QApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int messageTime = 1500; // ms; the next port's comes before
constexpr int refusalTime = 5000; // ms
constexpr int pauseMs = 500; // what a device needs to set its clock before it takes the next command

} // namespace

DeviceCommands::DeviceCommands(DeviceTargets *deviceTargets, QObject *parent)
    : QObject(parent)
    , targets(deviceTargets)
{
}

QString DeviceCommands::currentTimeText()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("ss:mm:HH:dd:MM:yy"));
}

bool DeviceCommands::stopProcess()
{
    if (!hasPort())
        return false;
    if (targets->stopActiveProcess())
        return true;
    SerialReader *reader = targets->onlyReader();
    if (reader)
        reader->sendCommand(QStringLiteral("#STOP\r\n"));
    else
        emit message(tr("Choose the window of the device whose process is to be stopped."), refusalTime);
    return reader != nullptr;
}

void DeviceCommands::setTime()
{
    if (waiting || !hasPort())
        return;
    QVector<QPointer<SerialReader>> chosen;
    if (SerialReader *active = targets->activeReader()) {
        chosen.append(active);
    } else {
        const QVector<SerialReader *> all = targets->readers();
        for (SerialReader *reader : all)
            chosen.append(reader);
    }
    const QPointer<DeviceCommands> self(this);
    waiting = true;
    emit waitBegun();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (const QPointer<SerialReader> &reader : qAsConst(chosen)) {
        if (self && reader)
            setTimeOf(reader);
    }
    QApplication::restoreOverrideCursor();
    if (!self)
        return;
    waiting = false;
    emit waitEnded();
}

bool DeviceCommands::hasPort()
{
    if (!targets->readers().isEmpty())
        return true;
    emit message(tr("No port is listened on: choose one in the preferences."), refusalTime);
    return false;
}

void DeviceCommands::setTimeOf(SerialReader *reader)
{
    const QPointer<SerialReader> guard(reader);
    emit message(tr("Setting the clock of the device on %1...").arg(reader->portName()), messageTime);
    reader->sendCommand(QStringLiteral("#TIME!") + currentTimeText() + QStringLiteral("\r\n"));
    pause();
    if (guard)
        guard->sendCommand(QStringLiteral("#BIB_!200\r\n"));
}

// A wait with a sleeping thread would let the system's few kilobytes for each port run over when many ports
// take their turns; the loop keeps reading them and only holds the user's input back.
void DeviceCommands::pause()
{
    QEventLoop loop;
    QTimer::singleShot(pauseMs, Qt::PreciseTimer, &loop, SLOT(quit()));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}
