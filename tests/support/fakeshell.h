#pragma once

#include "data/varnel3data.h"
#include "link/readerhost.h"
#include "link/recordinglog.h"
#include "link/recordingwindow.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVector>

/// One recording as it reached its window or its log: the times of its
/// records, "!" for a '!' line, and "end".
using Recording = QStringList;

/// A graph window that notes what it is given. "end" is noted once, however often it is finished.
class FakeWindow : public RecordingWindow {
public:
    void attachReader(DeviceLink *reader) override { link = reader; }
    void setPortName(const QString &name) override { portName = name; }
    void addRecord(const Varnel3Data &record) override { recording << QString::number(record.time); }
    void applyResistanceLine(const QByteArray &line) override { recording << line.left(1); }
    void finishRecording() override
    {
        link = nullptr;
        if (recording.isEmpty() || recording.last() != "end")
            recording << "end";
    }

    DeviceLink *link = nullptr;
    QString portName;
    Recording recording;
};

/// A shell that notes what a reader asks of it.
class FakeShell : public QObject, public ReaderHost {
    Q_OBJECT

public:
    ~FakeShell() override { qDeleteAll(windows); }

    RecordingWindow *createWindow() override
    {
        windows.append(new FakeWindow);
        return windows.last();
    }
    std::unique_ptr<RecordingLog> createLog(const QString &) override;
    bool claimClock(const QString &portName, ClockMoment moment) override
    {
        const QString claim = portName + (moment == ProcessStart ? " start" : " end");
        const bool isNew = !claimedClocks.contains(claim);
        if (isNew)
            claimedClocks << claim;
        return isNew;
    }
    void showMessageStatusBar(const QString &message, int timeout) override
    {
        calls << QString("status %1 %2").arg(QString::number(timeout), message);
    }
    void portFailed(const QString &port, const QString &text) override
    {
        calls << "failed " + port + ' ' + text;
    }
    void portLost(const QString &port) override { calls << "lost " + port; }
    void recordingUnwatched(const QString &port) override { calls << "unwatched " + port; }
    void noteEnd(const QString &port, const Varnel3Data &last, RecordingWindow *window) override
    {
        noted[port] = QString("%1 %2").arg(last.time).arg(windows.indexOf(static_cast<FakeWindow *>(window)));
    }
    void announceEnd(const QString &port) override { calls << "announced " + noted.value(port); }
    QObject *processReceiver() override { return this; }

    QVector<Recording> windowRecordings() const
    {
        QVector<Recording> recordings;
        for (const FakeWindow *window : windows)
            recordings.append(window->recording);
        return recordings;
    }

    QVector<FakeWindow *> windows; // owned
    QVector<Recording> logs;
    QStringList claimedClocks; ///< "COM7 start" or "COM7 end", each once
    QStringList calls; ///< of all but windows and logs, in their order
    QMap<QString, QString> noted; ///< by port: time of the end letter's line, number of the window or -1

public slots:
    void endProcess(int type) { calls << QString("ended %1").arg(type); }
    void endProcessMessage() { calls << "started"; }
};

/// A line as a Varnel 3 sends it, without its line end; `head` is "#06C05" up to the chemistry.
inline QByteArray varnel3Line(int time, const QByteArray &head = "#06C05", char flag3 = '_')
{
    return head + "__" + flag3 + "_B1," + QByteArray::number(time) + ",24000,05000,00230,01234,00045"
        + QByteArray(",4000,0").repeated(Varnel3Data::maxCells);
}
/// A line as a Tandor sends it, without its line end.
inline QByteArray tandorLine(int cells = 6, const QByteArray &chemistry = "06")
{
    return "#T" + QByteArray::number(cells).rightJustified(2, '0') + chemistry + "C4000,0"
        + QByteArray(",4000,0").repeated(11);
}
/// A line of the resistances of 16 cells.
inline QByteArray resistanceLine()
{
    return "!12,13,14,15,16,17,0,0,0,0,0,0,0,0,0,0";
}
