#include "link/serialreader.h"

#include "link/hangup.h"
#include "link/readerhost.h"
#include "ports/portobstacle.h"
#include "settings/messagetime.h"

#include <QDeadlineTimer>
#include <QDebug>

namespace {

constexpr int baudRate = 19200;
constexpr int tickPeriod = 1000; // ms
constexpr int endDelay = 250; // ms from an end letter to the end of the recording
constexpr int settleTime = 2; // ms in which the system hands on what it has received
constexpr int longestWrite = 500; // ms
constexpr int longestRest = 200; // ms
constexpr int mostFailures = 20; // without a byte in between
constexpr qint64 readAtOnce = 160; // bytes, a line with cells: a killed program loses no more than that
constexpr int mostReads = 64; // before other ports and windows have their turn
constexpr int shortestRecordLine = 10; // characters; shorter lines are replies to commands

} // namespace

SerialReader::SerialReader(QObject *parent, const QString &portName, ReaderHost *host)
    : QObject(parent)
    , m_portName(portName)
    , m_host(host)
    , m_dispatcher(this, host)
    , m_tick(new QTimer(this))
    , m_endShots(new QObject(this))
{
    m_port.setReadBufferSize(readAtOnce);
    connect(m_tick, SIGNAL(timeout()), this, SLOT(timerTickEvent()));
}

SerialReader::~SerialReader()
{
    if (m_port.isOpen())
        closePort();
}

QStringList SerialReader::availablePorts()
{
    QStringList names;
    const QStringList all = listPortNames();
    for (const QString &name : all) {
        if (name.startsWith(QLatin1String("COM")))
            names.append(name);
    }
    names.sort(Qt::CaseSensitive);
    qDebug() << "List of ports:" << names;
    return names;
}

bool SerialReader::tryStart()
{
    if (m_port.isOpen())
        return true;
    m_info = findPort(m_portName);
    m_port.setPortName(m_info.location.isEmpty() ? m_portName : m_info.location);
    const auto obstacle = obstacleToTrying(m_info);
    m_refusal = obstacle ? adviceAgainst(*obstacle) : QString();
    if (obstacle || !m_port.open(QIODevice::ReadWrite)) {
        qDebug() << m_portName << "device failed to open:" << (obstacle ? m_refusal : m_port.errorString());
        return false;
    }
    configurePort();
    qDebug() << m_portName << "Port opened succesfull";
    discardInput();
    m_lost = false;
    m_failures = 0;
    m_tick->start(tickPeriod);
    connectPort();
    return true;
}

bool SerialReader::start()
{
    if (tryStart())
        return true;
    m_host->showMessageStatusBar(failureText(), usualMessageTime);
    m_host->portFailed(m_portName, errorText());
    return false;
}

QString SerialReader::failureText() const
{
    const QString cause = m_refusal.isEmpty() ? m_port.errorString() : tr("It can't be locked");
    return tr("Device %1 failed to open: %2").arg(m_portName, cause);
}

QString SerialReader::errorText() const
{
    if (!m_refusal.isEmpty())
        return failureText() + QLatin1Char('\n') + m_refusal;
    if (m_port.error() != QSerialPort::PermissionError)
        return failureText();
    return failureText() + QLatin1Char('\n') + adviceAgainst(obstacleTo(m_info));
}

// The reader may not live until the shot of an end letter, and its port is not asked again.
void SerialReader::stop()
{
    if (dropEndShots())
        m_dispatcher.announceEnd();
    closePort();
}

void SerialReader::closePort()
{
    m_tick->stop();
    m_dispatcher.reset();
    m_framer.clear();
    if (!m_port.isOpen())
        return;
    m_port.disconnect(this);
    if (!m_lost) {
        m_port.setDataTerminalReady(false);
        m_port.setRequestToSend(false);
    }
    m_port.close();
    qDebug() << "Close port " << m_portName;
}

void SerialReader::sendCommand(const QString &text)
{
    if (!m_port.isOpen() || m_lost)
        return;
    m_writing = true;
    m_port.setReadBufferSize(0); // a full buffer would end the wait
    m_port.write(text.toLatin1());
    m_port.flush();
    const QDeadlineTimer deadline(longestWrite);
    while (m_port.bytesToWrite() != 0 && m_port.waitForBytesWritten(int(deadline.remainingTime()))) { }
    m_port.setReadBufferSize(readAtOnce);
    m_writing = false;
    QMetaObject::invokeMethod(this, "onReadyRead", Qt::QueuedConnection); // of what has come meanwhile
}

void SerialReader::detachGraphChild(RecordingWindow *)
{
    m_dispatcher.forgetWindow();
}

void SerialReader::onReadyRead()
{
    if (m_handling || m_writing || !m_port.isOpen())
        return;
    m_handling = true;
    int reads = 0;
    do {
        const QByteArray bytes
            = m_port.readAll(); // of no bytes, too: reading goes on by that after a failure
        if (!bytes.isEmpty())
            m_failures = 0;
        m_framer.feed(bytes);
        while (m_framer.next(&m_line)) // a stop from inside clears the framer
            handleLine(m_line);
    } while (!m_port.atEnd() || (++reads < mostReads && readMore()));
    m_handling = false;
}

// What waits in the system. An answer of "nothing" comes as an error, too, and is none.
bool SerialReader::readMore()
{
    return m_port.isOpen() && m_port.waitForReadyRead(0);
}

void SerialReader::readRest()
{
    const QDeadlineTimer deadline(longestRest);
    do
        onReadyRead();
    while (m_port.isOpen() && !m_handling && !deadline.hasExpired() && m_port.waitForReadyRead(settleTime));
}

void SerialReader::endProcesTimer()
{
    m_dispatcher.endProcess();
}

void SerialReader::timerTickEvent()
{
    m_dispatcher.tick();
}

// A read fails too when a command's wait has read what the system was about to announce, and a write when the
// line is full; neither is a loss. The port of a device that has gone fails as often as the system lets it,
// until it is closed, which must not happen from here.
void SerialReader::onErrorOccurred(QSerialPort::SerialPortError error)
{
    const bool failure = error == QSerialPort::ResourceError || error == QSerialPort::ReadError
        || error == QSerialPort::WriteError;
    if (!failure || m_lost)
        return;
    m_lost = hasHungUp(m_port) || ++m_failures > mostFailures;
    QMetaObject::invokeMethod(this, m_lost ? "closeLostPort" : "onReadyRead", Qt::QueuedConnection);
}

void SerialReader::closeLostPort()
{
    onReadyRead(); // what arrived before the loss
    if (!m_lost || !m_port.isOpen())
        return;
    stop();
    m_host->portLost(m_portName); // may schedule this for deletion
}

// Eight data bits, one stop bit, neither parity nor flow control are what a port is opened with.
void SerialReader::configurePort()
{
    m_port.setBaudRate(baudRate);
    m_port.setDataTerminalReady(true);
    m_port.setRequestToSend(true);
}

// Reading alone gets nothing so soon after the opening, and clearing only what has reached the line's own
// buffer: the system may hold more behind it.
void SerialReader::discardInput()
{
    m_port.flush();
    int reads = mostReads;
    do {
        m_port.clear(QSerialPort::Input);
        m_port.readAll(); // takes reading up again, which a full buffer has ended
    } while (--reads > 0 && m_port.waitForReadyRead(settleTime));
}

void SerialReader::connectPort()
{
    connect(&m_port, SIGNAL(readyRead()), this, SLOT(onReadyRead()));
    const char *const failed = SIGNAL(errorOccurred(QSerialPort::SerialPortError));
    connect(&m_port, failed, this, SLOT(onErrorOccurred(QSerialPort::SerialPortError)));
}

void SerialReader::handleLine(const QByteArray &line)
{
    if (line.size() < shortestRecordLine)
        emit control_data(QString::fromLatin1(line));
    else if (m_dispatcher.processLine(line))
        armEndShot();
}

void SerialReader::armEndShot()
{
    auto *shot = new QTimer(m_endShots);
    shot->setSingleShot(true);
    shot->setTimerType(Qt::PreciseTimer);
    connect(shot, SIGNAL(timeout()), this, SLOT(endProcesTimer()));
    connect(shot, SIGNAL(timeout()), shot, SLOT(deleteLater()));
    shot->start(endDelay);
}

// True where one was under way.
bool SerialReader::dropEndShots()
{
    bool pending = false;
    const auto shots = m_endShots->findChildren<QTimer *>();
    for (QTimer *shot : shots) {
        pending = pending || shot->isActive();
        shot->stop();
        shot->deleteLater();
    }
    return pending;
}
