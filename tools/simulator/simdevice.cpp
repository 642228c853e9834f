#include "simulator/simdevice.h"

#include "simulator/linewriter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sim {

namespace {

constexpr double bytesPerMs = 19200 / 10.0 / 1000; // 8 data bits, start and stop bit
constexpr double endGap
    = 40; // ms from the last record to the first end line and between these; 5 stay below 250
constexpr double quietAfterEnd = 1000; // ms, whatever the speed
constexpr double settleAfterOpen = 500; // ms; who opens a port throws away what has arrived until then
constexpr int realPause = 20; // s; longer silences begin a new recording and are never shortened
constexpr int trickleLines = 11; // of an older charger, the first without current
constexpr int hangUpDelay = 30; // ms; what the system still holds when a line goes away is lost
constexpr int longestCommand = 64;
constexpr double mostBehind = 500; // ms; after that the device does not catch up

quint32 seedOf(const RunSettings &run, const QString &port)
{
    quint32 hash = 2166136261U ^ run.seed;
    const QByteArray bytes = port.toUtf8();
    for (const char byte : bytes)
        hash = (hash ^ quint32(static_cast<unsigned char>(byte))) * 16777619U;
    return hash;
}

} // namespace

SimDevice::SimDevice(
    const DeviceSettings &settings, const RunSettings &run, HandOverLog *log, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_run(run)
    , m_log(log)
    , m_endpoint(run.folder, settings.port)
    , m_faults(settings.faults, seedOf(run, settings.port) ^ 0x5EED)
{
    m_clock.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    for (QTimer *timer : {&m_timer, &m_detectTimer, &m_leaveTimer, &m_returnTimer})
        timer->setSingleShot(true);
    m_panel.setCells(settings.cells);
    connect(&m_timer, SIGNAL(timeout()), SLOT(tick()));
    connect(&m_detectTimer, SIGNAL(timeout()), SLOT(findPack()));
    connect(&m_leaveTimer, SIGNAL(timeout()), SLOT(goAway()));
    connect(&m_returnTimer, SIGNAL(timeout()), SLOT(comeBack()));
    connect(&m_endpoint, SIGNAL(received(QByteArray)), SLOT(onReceived(QByteArray)));
    connect(&m_endpoint, SIGNAL(handedOver(QByteArray,int)), SLOT(onHandedOver(QByteArray,int)));
    connect(&m_endpoint, SIGNAL(lost(QByteArray,int)), SLOT(onLost(QByteArray,int)));
    connect(&m_endpoint, SIGNAL(listenedChanged(bool)), SLOT(onListenedChanged(bool)));
}

bool SimDevice::begin(QString *error)
{
    m_replay.setLoop(m_settings.loop);
    if (!m_settings.replay.isEmpty() && !m_replay.load(m_settings.replay, error))
        return false;
    if (!plug(error))
        return false;
    if (m_settings.start == Start::Now)
        startProcess();
    return true;
}

QString SimDevice::status()
{
    static const char *const stages[] = {"idle", "measuring", "ending", "pausing"};
    QString text = QStringLiteral("%1 %2 %3, %4, %5 lines, %6 lost")
                       .arg(port(), modelName(m_settings.model), QLatin1String(stages[int(m_stage)]),
                           !isPlugged()       ? QStringLiteral("unplugged")
                               : isListened() ? QStringLiteral("open")
                                              : QStringLiteral("closed"),
                           QString::number(handedOver(LineKind::Measurement) + handedOver(LineKind::End)),
                           QString::number(m_lost));
    if (m_process)
        text += QStringLiteral(", %1 s, %2 mV, %3 mA, %4 mAh")
                    .arg(m_process->reading().seconds)
                    .arg(m_process->reading().millivolts)
                    .arg(m_process->reading().milliamps)
                    .arg(m_process->reading().milliampHours);
    return text + QStringLiteral(", menu %1, memory %2").arg(m_panel.state()).arg(m_panel.memory());
}

bool SimDevice::plug(QString *error)
{
    m_returnTimer.stop();
    m_command.clear();
    if (isPlugged())
        return true;
    if (m_endpoint.plug(error)) {
        tell(QStringLiteral("plugged in as %1").arg(m_endpoint.link()));
        return true;
    }
    return false;
}

void SimDevice::unplug()
{
    m_returnTimer.stop();
    if (!isPlugged())
        return;
    m_endpoint.unplug();
    tell(QStringLiteral("unplugged"));
}

void SimDevice::hangUp(int seconds)
{
    if (m_process && m_process->reading().cellCount > 0) {
        const QByteArray line = measurementLine(m_process->reading());
        m_endpoint.send(line.left(line.size() / 2), int(LineKind::Spoiled));
    }
    m_away = seconds;
    m_silentUntil = std::max(m_silentUntil, now() + hangUpDelay);
    m_leaveTimer.start(hangUpDelay);
}

void SimDevice::goAway()
{
    unplug();
    if (m_away > 0)
        m_returnTimer.start(m_away * 1000);
}

void SimDevice::comeBack()
{
    QString error;
    if (!plug(&error))
        tell(error);
}

void SimDevice::startProcess()
{
    if (m_stage == Stage::Measuring || m_stage == Stage::Ending)
        return;
    ++m_processNumber;
    m_replay.rewind();
    m_process
        = std::make_unique<Process>(m_settings, seedOf(m_run, port()) + 7919 * quint32(m_processNumber));
    m_nextResistance = m_settings.resistanceEvery;
    m_panel.setState(FrontPanel::Running);
    m_stage = Stage::Measuring;
    arm(std::max(now() + interval(0), m_quietUntil));
    tell(QStringLiteral("process %1 begins").arg(m_processNumber));
    emit processStarted();
}

void SimDevice::endProcess(char letter)
{
    if (m_stage != Stage::Measuring)
        return;
    if (m_process->reading().cellCount == 0)
        m_process->next();
    m_stage = Stage::Ending;
    m_endLetter = letter;
    m_endLine = 0;
    if (m_settings.model == Model::Tandor || !m_settings.replay.isEmpty())
        finish(); // neither says that it ends
    else
        arm(now() + endGap);
}

void SimDevice::silence(int seconds)
{
    m_silentUntil = now() + pauseLength(seconds);
    tell(QStringLiteral("silent for %1 s").arg(seconds));
}

void SimDevice::connectPack()
{
    m_settings.packOn = true;
    if (m_panel.state() == FrontPanel::Memory)
        m_detectTimer.start(m_settings.detect * 1000);
}

void SimDevice::disconnectPack()
{
    m_settings.packOn = false;
    if (m_stage == Stage::Measuring)
        endProcess('S');
    else if (m_panel.state() == FrontPanel::Disconnect || m_panel.state() == FrontPanel::Cells)
        m_panel.setState(FrontPanel::Memory);
}

void SimDevice::setSpeed(double speed)
{
    m_run.speed = std::clamp(speed, 0.01, 100000.0);
    if (m_stage == Stage::Measuring)
        arm(std::min(m_due, now() + interval(0)));
}

void SimDevice::sendRaw(const QByteArray &bytes)
{
    m_endpoint.send(bytes, int(LineKind::Raw));
}

double SimDevice::now() const
{
    return double(m_clock.nsecsElapsed()) * 1e-6;
}

double SimDevice::pauseLength(int seconds) const
{
    return seconds > realPause ? seconds * 1000.0 : seconds * 1000.0 / m_run.speed;
}

double SimDevice::interval(int bytes) const
{
    return m_run.lineRate ? bytes / bytesPerMs : m_settings.secondsPerLine() * 1000.0 / m_run.speed;
}

void SimDevice::arm(double due)
{
    m_due = due;
    m_timer.start(std::max(0, int(std::ceil(due - now()))));
}

void SimDevice::tick()
{
    switch (m_stage) {
    case Stage::Measuring:
        measure();
        break;
    case Stage::Ending:
        sendEnd();
        break;
    case Stage::Pausing:
        startProcess();
        break;
    case Stage::Idle:
        break;
    }
}

/// All lines that are due; several where the speed asks for more than one a millisecond.
void SimDevice::measure()
{
    if (now() - m_due > mostBehind)
        m_due = now();
    for (int batch = 0; batch < 200 && m_stage == Stage::Measuring && m_due <= now(); ++batch) {
        if (m_settings.replay.isEmpty())
            sendMeasurement();
        else
            sendReplayed();
    }
    if (m_stage == Stage::Measuring)
        arm(m_due);
}

void SimDevice::sendMeasurement()
{
    const QByteArray line = measurementLine(m_process->next());
    sendLine(line, LineKind::Measurement);
    m_due += interval(line.size());
    resistanceDue();
    if (m_process->finished())
        endProcess(m_process->endLetter());
}

void SimDevice::sendReplayed()
{
    const QByteArray line = m_replay.next();
    sendLine(line, LineKind::Raw);
    m_due += interval(line.size());
    if (m_replay.atEnd())
        endProcess('E');
}

void SimDevice::resistanceDue()
{
    const Reading &reading = m_process->reading();
    if (m_settings.model != Model::Varnel3 || !reading.cellData || m_settings.resistanceEvery == 0
        || reading.seconds < m_nextResistance)
        return;
    m_nextResistance = reading.seconds + m_settings.resistanceEvery;
    const QByteArray line = resistanceLine(reading);
    sendLine(line, LineKind::Resistance);
    m_due += m_run.lineRate ? interval(line.size()) : 0;
}

void SimDevice::sendEnd()
{
    const bool hasLetter = m_settings.model == Model::Varnel3;
    const QByteArray line
        = measurementLine(hasLetter ? m_process->ending(m_endLetter) : m_process->trickle(m_endLine));
    sendLine(line, hasLetter ? LineKind::End : LineKind::Measurement);
    const int lines = hasLetter ? m_settings.endLines : m_endLetter == 'E' ? trickleLines : 1;
    if (++m_endLine >= lines)
        finish();
    else
        arm(m_due + (hasLetter ? endGap : interval(line.size())));
}

/// The process is over; the buzzer sounds until a key is pressed or the pack taken off.
void SimDevice::finish()
{
    m_quietUntil = now() + quietAfterEnd;
    m_panel.setState(m_settings.packOn ? FrontPanel::Disconnect : FrontPanel::Memory);
    const bool more = m_settings.processes == 0 || m_processNumber < m_settings.processes;
    m_stage = more ? Stage::Pausing : Stage::Idle;
    if (more)
        arm(now() + std::max(quietAfterEnd, pauseLength(m_settings.pause)));
    tell(QStringLiteral("process %1 ended, %2").arg(m_processNumber).arg(QLatin1Char(m_endLetter)));
    emit processEnded(m_endLetter);
}

void SimDevice::sendLine(const QByteArray &line, LineKind kind)
{
    if (now() < m_silentUntil)
        return;
    const FaultInjector::Outcome outcome = m_faults.pass(line);
    m_endpoint.send(outcome.bytes, int(outcome.spoiled ? LineKind::Spoiled : kind));
    if (outcome.fault == Fault::Silence)
        silence(realPause + 5);
    else if (outcome.fault == Fault::HangUp)
        hangUp(3);
}

/// Commands begin with '#' and end with a line feed; what stands between two of them is no command.
void SimDevice::onReceived(const QByteArray &bytes)
{
    for (const char byte : bytes) {
        if (byte == '#')
            m_command.clear();
        if (byte == '\n')
            handleCommand(std::exchange(m_command, {}).trimmed());
        else if (m_command.size() < longestCommand)
            m_command += byte;
    }
}

void SimDevice::handleCommand(const QByteArray &text)
{
    const bool keys = !text.startsWith("#TIME!") && !text.startsWith("#BIB_!") && text != "#STOP";
    if (text.isEmpty() || now() < m_silentUntil
        || (keys && (!m_settings.remote || m_settings.model == Model::Tandor)))
        return;
    const FrontPanel::Answer answer = m_panel.command(text);
    if (!text.endsWith('?'))
        tell(QStringLiteral("told %1").arg(QString::fromLatin1(text)));
    if (!answer.reply.isEmpty())
        m_endpoint.send(answer.reply, int(LineKind::Reply));
    if (answer.event == FrontPanel::Event::MemoryKey)
        m_detectTimer.start(m_settings.detect * 1000);
    if (answer.event == FrontPanel::Event::Stop)
        endProcess('M');
    if (answer.event == FrontPanel::Event::Start) {
        m_settings.cells = m_panel.cells();
        startProcess();
    }
}

void SimDevice::findPack()
{
    if (m_panel.state() != FrontPanel::Memory || !m_settings.packOn)
        return;
    m_panel.setState(FrontPanel::Cells);
    m_panel.setCells(m_settings.cells);
}

void SimDevice::onHandedOver(const QByteArray &bytes, int kind)
{
    ++m_handedOver[size_t(kind)];
    if (m_log)
        m_log->write(port(), LineKind(kind), false, bytes);
}

void SimDevice::onLost(const QByteArray &bytes, int kind)
{
    ++m_lost;
    if (m_log)
        m_log->write(port(), LineKind(kind), true, bytes);
}

void SimDevice::onListenedChanged(bool listened)
{
    tell(listened ? QStringLiteral("opened") : QStringLiteral("closed"));
    if (!listened || m_openedOnce || m_settings.start != Start::OnOpen)
        return;
    m_openedOnce = true;
    m_quietUntil = now() + settleAfterOpen;
    startProcess();
}

void SimDevice::tell(const QString &text)
{
    emit happened(port() + QLatin1Char(' ') + text);
}

} // namespace sim
