#include "devices/devicecommands.h"

#include "devices/devicetargets.h"
#include "link/clockcommand.h"
#include "link/serialreader.h"
#include "settings/messagetime.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

constexpr int messageTime = 1500; // ms; the next port's comes before
constexpr int pauseMs = 500; // what a device needs to set its clock before it takes the next command

} // namespace

DeviceCommands::DeviceCommands(DeviceTargets *targets, QWidget *window)
    : QObject(window)
    , m_targets(targets)
    , m_window(window)
    , m_pause(new QTimer(this))
{
    m_pause->setSingleShot(true);
    m_pause->setTimerType(Qt::PreciseTimer);
    m_pause->setInterval(pauseMs);
    connect(m_pause, SIGNAL(timeout()), this, SLOT(onPauseOver()));
}

DeviceCommands::~DeviceCommands()
{
    if (!m_clocks.isEmpty())
        QApplication::restoreOverrideCursor();
}

void DeviceCommands::stopProcess()
{
    if (!hasPort())
        return;
    const SerialReader *active = m_targets->activeReader();
    if (m_targets->stopActiveProcess()) {
        if (active)
            tellStopped(active->portName());
        return;
    }
    SerialReader *only = m_targets->onlyReader();
    const QString silentPort = m_targets->activePort();
    if (!only)
        emit message(tr("Choose the window of the device whose process is to be stopped."), usualMessageTime);
    else if (!silentPort.isEmpty() && silentPort != only->portName())
        ask(only->portName(), silentPort);
    else
        stop(only);
}

void DeviceCommands::stop(SerialReader *reader)
{
    reader->stopProcess();
    tellStopped(reader->portName());
}

void DeviceCommands::tellStopped(const QString &portName)
{
    emit message(tr("The device on %1 was told to stop its process.").arg(portName), usualMessageTime);
}

void DeviceCommands::ask(const QString &portName, const QString &silentPort)
{
    if (m_question)
        return;
    const QString text = tr("The current window was fed by %1, which is not listened on.\n"
                            "Stop the process of the device on %2?")
                             .arg(silentPort, portName);
    m_questionPort = portName;
    m_question = new QMessageBox(
        QMessageBox::Question, tr("Stop process"), text, QMessageBox::Yes | QMessageBox::No, m_window);
    m_question->setObjectName(QStringLiteral("stopQuestion"));
    m_question->setTextFormat(Qt::PlainText);
    m_question->setAttribute(Qt::WA_DeleteOnClose);
    m_question->setDefaultButton(QMessageBox::No);
    connect(m_question, SIGNAL(finished(int)), this, SLOT(onAnswered(int)));
    m_question->open();
}

// The port may have gone and come back since.
void DeviceCommands::onAnswered(int answer)
{
    if (answer != QMessageBox::Yes)
        return;
    const QVector<SerialReader *> readers = m_targets->readers();
    for (SerialReader *reader : readers) {
        if (reader->portName() == m_questionPort)
            return stop(reader);
    }
    emit message(tr("%1 is no longer listened on: its device was not told to stop.").arg(m_questionPort),
        usualMessageTime);
}

void DeviceCommands::setTime()
{
    if (!m_clocks.isEmpty() || !hasPort())
        return;
    if (SerialReader *active = m_targets->activeReader()) {
        m_clocks.enqueue(active);
    } else {
        const QVector<SerialReader *> all = m_targets->readers();
        for (SerialReader *reader : all)
            m_clocks.enqueue(reader);
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    setNextClock();
}

bool DeviceCommands::hasPort()
{
    if (!m_targets->readers().isEmpty())
        return true;
    emit message(tr("No port is listened on: choose one in the preferences."), usualMessageTime);
    return false;
}

// A timer between the two commands, not a sleep: the system's few kilobytes for each port would run over when
// many ports take their turns. Nor a loop of its own, inside which nothing could be asked or told.
void DeviceCommands::setNextClock()
{
    while (!m_clocks.isEmpty() && !m_clocks.head())
        m_clocks.dequeue();
    if (m_clocks.isEmpty()) {
        QApplication::restoreOverrideCursor();
        return;
    }
    SerialReader *reader = m_clocks.head();
    emit message(tr("Setting the clock of the device on %1...").arg(reader->portName()), messageTime);
    reader->sendCommand(clockCommand());
    m_pause->start();
}

void DeviceCommands::onPauseOver()
{
    if (SerialReader *reader = m_clocks.dequeue())
        reader->sendCommand(QStringLiteral("#BIB_!200\r\n"));
    setNextClock();
}
