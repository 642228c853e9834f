#pragma once

class QByteArray;
class Varnel3Data;

/// Keeps the lines of one recording as they arrive, whatever becomes of its
/// window. Destroying it ends the record.
class RecordingLog {
public:
    virtual ~RecordingLog() = default;

    /// One measurement: the line as it came and what was made of it.
    virtual void addRecord(const QByteArray &line, const Varnel3Data &record) = 0;
    /// A '!' line that followed the newest measurement.
    virtual void addResistanceLine(const QByteArray &line) = 0;
};
