#pragma once

#include <QByteArray>

class Varnel3Data;

/// Decides what the journal of one live recording says of each line. It reads as a data file.
class JournalLines {
public:
    JournalLines();

    /// The journal's line, without its end, for a measurement that came as `line` and became `record`. Valid
    /// until the next call and as long as `line`, as the other.
    const QByteArray &ofRecord(const QByteArray &line, const Varnel3Data &record);
    /// The same for a '!' line that followed the newest measurement.
    const QByteArray &ofResistances(const QByteArray &line);
    /// Enough measurements came for a file to be kept.
    bool areWorthKeeping() const;

private:
    void takeOwn(const Varnel3Data &record);

    QByteArray m_line; // the newest own one; keeps its memory, so that a line of usual length needs none
    int m_records = 0;
    bool m_newestReads = true; // as it was written
};
