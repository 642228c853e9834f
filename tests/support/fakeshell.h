#pragma once

#include "data/varnel3data.h"
#include "link/readerhost.h"
#include "link/recordingwindow.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVector>

class DeviceLink;

/// One recording as it reached its window or its log: the times of its
/// records, "!" for a '!' line, and "end".
using Recording = QStringList;

/// A graph window that notes what it is given. "end" is noted once, however often it is finished.
class FakeWindow : public RecordingWindow {
public:
    void attachReader(DeviceLink *reader) override { link = reader; }
    void setPortName(const QString &name) override { portName = name; }
    void addRecord(const Varnel3Data &record) override;
    void applyResistanceLine(const QByteArray &line) override;
    void finishRecording() override;

    DeviceLink *link = nullptr;
    QString portName;
    Recording recording;
};

/// A shell that notes what a reader asks of it.
class FakeShell : public QObject, public ReaderHost {
    Q_OBJECT

public:
    ~FakeShell() override;

    RecordingWindow *createWindow() override;
    std::unique_ptr<RecordingLog> createLog(const QString &portName) override;
    bool claimClock(const QString &portName, ClockMoment moment) override;
    void showMessageStatusBar(const QString &message, int timeout) override;
    void portFailed(const QString &portName, const QString &text) override;
    void portLost(const QString &portName) override { calls.append(QStringLiteral("lost ") + portName); }
    void recordingUnwatched(const QString &portName) override;
    void noteEnd(const QString &portName, const Varnel3Data &last, RecordingWindow *window) override;
    void announceEnd(const QString &portName) override;
    QObject *processReceiver() override { return this; }

    QVector<Recording> windowRecordings() const;

    QVector<FakeWindow *> windows; // owned
    QVector<Recording> logs;
    QStringList claimedClocks; ///< "COM7 start" or "COM7 end", each once
    QStringList calls; ///< of all but windows and logs, in their order
    QMap<QString, QString> noted; ///< by port: time of the end letter's line, number of the window or -1

public slots:
    void endProcess(int type) { calls.append(QStringLiteral("ended %1").arg(type)); }
    void endProcessMessage() { calls.append(QStringLiteral("started")); }
};

/// A line as a Varnel 3 sends it, without its line end; `head` is "#06C05" up to the chemistry.
QByteArray varnel3Line(int time, const QByteArray &head = "#06C05", char flag3 = '_');
/// A line as a Tandor sends it, without its line end.
QByteArray tandorLine(int cells = 6, const QByteArray &chemistry = "06");
/// A line of the resistances of 16 cells.
QByteArray resistanceLine();
