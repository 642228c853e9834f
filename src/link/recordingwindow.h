#pragma once

#include <QString>

class DeviceLink;
class Varnel3Data;

/// What a serial reader asks of the graph window that it feeds.
class RecordingWindow {
public:
    virtual ~RecordingWindow() = default;

    /// The window is live from now on. `reader` outlives the recording or ends it with finishRecording().
    virtual void attachReader(DeviceLink *reader) = 0;
    /// The name of the port that the records come from, which the title shows.
    virtual void setPortName(const QString &name) = 0;
    /// Stores a copy of `record`.
    virtual void addRecord(const Varnel3Data &record) = 0;
    /// Applies a '!' line to the newest record and refreshes; without a record nothing happens.
    virtual void applyResistanceLine(const QByteArray &line) = 0;
    /// The recording is over: live no more, the reader forgotten without being called back,
    /// records kept. May be called again.
    virtual void finishRecording() = 0;
};
