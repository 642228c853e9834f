#pragma once

#include "link/readerhost.h"
#include "link/recordinglog.h"
#include "link/recordingwindow.h"

/// A graph window that keeps nothing.
class QuietSink : public RecordingSink {
public:
    void attachReader(DeviceLink *) override { }
    void setFileName(const QString &) override { }
    void addRecord(const Varnel3Data &) override { ++records; }
    void applyResistanceLine(const QString &) override { }
    void finishRecording() override { }

    int records = 0;
};

/// A shell for readers whose recordings do not matter.
class QuietHost : public ReaderHost {
public:
    RecordingSink *createRecording() override { return &sink; }
    std::unique_ptr<RecordingLog> createRecordingLog(const QString &) override { return nullptr; }
    QString currentTimeText() const override { return {}; }
    QMap<QString, bool> &startTimeSent() override { return times; }
    QMap<QString, bool> &endTimeSent() override { return times; }
    void showMessageStatusBar(const QString &, int) override { }
    void portFailed(const QString &, const QString &) override { }
    void portLost(const QString &) override { }
    void recordingUnwatched(const QString &) override { }
    void noteEnd(const QString &, const Varnel3Data &, RecordingSink *) override { }
    void announceEnd(const QString &) override { }
    QObject *processReceiver() override { return nullptr; }

    QuietSink sink;
    QMap<QString, bool> times;
};
