#include "link/linedispatcher.h"

#include "link/clockcommand.h"
#include "link/devicelink.h"
#include "link/recordinglog.h"
#include "link/recordingwindow.h"
#include "settings/messagetime.h"
#include "settings/varnelsettings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMetaObject>

#include <new>

namespace {

constexpr int longestPause = 20; // seconds of silence that a recording survives

} // namespace

LineDispatcher::LineDispatcher(DeviceLink *link, ReaderHost *host)
    : m_link(link)
    , m_host(host)
{
}

LineDispatcher::~LineDispatcher() = default;

bool LineDispatcher::processLine(const QByteArray &line)
{
    if (!line.startsWith('#')) {
        keepResistanceLine(line);
        return false;
    }
    const Previous previous = {m_record.mode, m_record.time, m_record.cellCount, m_record.cellType};
    if (!parse(line))
        return false;
    const bool starts = startsRecording();
    if (starts)
        startLog();
    if (m_log)
        m_log->addRecord(line, m_record); // before windows take their time
    if (starts)
        startRecording();
    showRecord();
    m_idleTicks = 0;
    if (takeEndLetter())
        return true;
    if (processChanged(previous))
        reset();
    return false;
}

void LineDispatcher::endProcess()
{
    announceEnd();
    reset();
    setClockOnce(ReaderHost::ProcessEnd);
}

void LineDispatcher::announceEnd()
{
    m_host->announceEnd(m_link->portName());
    QMetaObject::invokeMethod(
        m_host->processReceiver(), "endProcess", Qt::QueuedConnection, Q_ARG(int, m_endType));
}

void LineDispatcher::reset()
{
    finishRecording();
    m_record = {};
    m_newProcess = true;
}

bool LineDispatcher::isRecording() const
{
    return !m_newProcess && m_idleTicks <= longestPause;
}

// A line may be of any length, and this is the only one that lacks memory: without it recording goes on.
bool LineDispatcher::parse(const QByteArray &line)
{
    try {
        return m_record.parseLine(QLatin1String(line));
    } catch (const std::bad_alloc &) {
        qWarning() << m_link->portName() << "no memory for a line of" << line.size() << "characters";
        m_host->showMessageStatusBar(
            QCoreApplication::translate("LineDispatcher", "Not enough memory: a line of %1 is left out.")
                .arg(m_link->portName()),
            usualMessageTime);
        return false;
    }
}

bool LineDispatcher::startsRecording() const
{
    return m_newProcess || m_idleTicks > longestPause
        || (m_record.time == 0 && m_record.cellCount > 0 && m_record.device != Varnel3Data::Tandor);
}

void LineDispatcher::startLog()
{
    finishRecording();
    m_log = m_host->createLog(m_link->portName());
}

void LineDispatcher::startRecording()
{
    QMetaObject::invokeMethod(m_host->processReceiver(), "endProcessMessage", Qt::QueuedConnection);
    m_unwatchedTold = false;
    m_window = m_host->createWindow();
    m_newProcess = false;
    m_window->attachReader(m_link);
    m_window->setPortName(m_link->portName());
    setClockOnce(ReaderHost::ProcessStart);
}

void LineDispatcher::showRecord()
{
    if (m_window) {
        m_window->addRecord(m_record);
    } else if (!m_unwatchedTold) {
        m_unwatchedTold = true;
        m_host->recordingUnwatched(m_link->portName());
    }
}

void LineDispatcher::keepResistanceLine(const QByteArray &line)
{
    if (!line.startsWith('!'))
        return;
    if (m_log && Varnel3Data().parseResistanceLine(QLatin1String(line)))
        m_log->addResistanceLine(line);
    if (m_window)
        m_window->applyResistanceLine(line);
}

bool LineDispatcher::takeEndLetter()
{
    const int end = m_record.processEnd();
    if (end == Varnel3Data::NoEnd)
        return false;
    m_endType = end;
    m_host->noteEnd(m_link->portName(), m_record, m_window);
    return true;
}

// A balancer's clock stands still, so that only its pack tells one process from the next.
bool LineDispatcher::processChanged(const Previous &previous) const
{
    if (previous.mode == Varnel3Data::NoMode)
        return false;
    if (m_record.cellCount != previous.cellCount || m_record.cellType != previous.cellType)
        return true;
    if (m_record.device == Varnel3Data::Tandor)
        return false;
    return m_record.time == 0 || m_record.time < previous.time || m_record.mode != previous.mode;
}

void LineDispatcher::finishRecording()
{
    if (m_window)
        m_window->finishRecording();
    m_window = nullptr;
    m_log.reset();
}

void LineDispatcher::setClockOnce(ReaderHost::ClockMoment moment)
{
    if (VarnelSettings().sendTime() && m_host->claimClock(m_link->portName(), moment))
        m_link->sendCommand(clockCommand());
}
