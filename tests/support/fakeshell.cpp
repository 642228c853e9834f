#include "support/fakeshell.h"

#include "link/recordinglog.h"

namespace {

/// Writes to its place in the shell's list, so that what it kept outlives it.
class FakeLog : public RecordingLog {
public:
    explicit FakeLog(FakeShell *owner)
        : shell(owner)
        , index(owner->logs.size() - 1)
    {
    }
    ~FakeLog() override { shell->logs[index].append(QStringLiteral("end")); }
    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        Varnel3Data again;
        again.parseLine(QLatin1String(line));
        shell->logs[index].append(
            again.mode == record.mode ? QString::number(record.time) : QStringLiteral("?"));
    }
    void addResistanceLine(const QByteArray &line) override
    {
        shell->logs[index].append(QString::fromLatin1(line.left(1)));
    }

private:
    FakeShell *shell;
    int index;
};

} // namespace

void FakeWindow::addRecord(const Varnel3Data &record)
{
    recording.append(QString::number(record.time));
}

void FakeWindow::applyResistanceLine(const QByteArray &line)
{
    recording.append(QString::fromLatin1(line.left(1)));
}

void FakeWindow::finishRecording()
{
    link = nullptr;
    if (recording.isEmpty() || recording.last() != QLatin1String("end"))
        recording.append(QStringLiteral("end"));
}

FakeShell::~FakeShell()
{
    qDeleteAll(windows);
}

RecordingWindow *FakeShell::createWindow()
{
    windows.append(new FakeWindow);
    return windows.last();
}

std::unique_ptr<RecordingLog> FakeShell::createLog(const QString &)
{
    logs.append(Recording());
    return std::make_unique<FakeLog>(this);
}

bool FakeShell::claimClock(const QString &portName, ClockMoment moment)
{
    const QString claim = portName + QLatin1String(moment == ProcessStart ? " start" : " end");
    if (claimedClocks.contains(claim))
        return false;
    claimedClocks.append(claim);
    return true;
}

void FakeShell::showMessageStatusBar(const QString &message, int timeout)
{
    calls.append(QStringLiteral("status %1 %2").arg(QString::number(timeout), message));
}

void FakeShell::portFailed(const QString &portName, const QString &text)
{
    calls.append(QStringLiteral("failed %1 %2").arg(portName, text));
}

void FakeShell::recordingUnwatched(const QString &portName)
{
    calls.append(QStringLiteral("unwatched ") + portName);
}

void FakeShell::noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window)
{
    noted[portName]
        = QStringLiteral("%1 %2").arg(last.time).arg(windows.indexOf(static_cast<FakeWindow *>(window)));
}

void FakeShell::announceEnd(const QString &portName)
{
    calls.append(QStringLiteral("announced ") + noted.value(portName));
}

QVector<Recording> FakeShell::windowRecordings() const
{
    QVector<Recording> recordings;
    for (const FakeWindow *window : windows)
        recordings.append(window->recording);
    return recordings;
}

QByteArray varnel3Line(int time, const QByteArray &head, char flag3)
{
    return head + "__" + flag3 + "_B1," + QByteArray::number(time) + ",24000,05000,00230,01234,00045"
        + QByteArray(",4000,0").repeated(Varnel3Data::maxCells);
}

QByteArray tandorLine(int cells, const QByteArray &chemistry)
{
    return "#T" + QByteArray::number(cells).rightJustified(2, '0') + chemistry + "C4000,0"
        + QByteArray(",4000,0").repeated(11);
}

QByteArray resistanceLine()
{
    return "!12,13,14,15,16,17,0,0,0,0,0,0,0,0,0,0";
}
