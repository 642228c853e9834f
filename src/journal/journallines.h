#pragma once

#include <QByteArray>

class QString;
class Varnel3Data;

/// Decides what the journal of one live recording says of each line. It reads as a data file.
class JournalLines {
public:
    JournalLines();

    /// The journal's line, without its end, for a measurement that came as `line` and became `record`. Valid
    /// until the next call, as the other.
    const QByteArray &ofRecord(const QString &line, const Varnel3Data &record);
    /// The same for a '!' line that followed the newest measurement.
    const QByteArray &ofResistances(const QString &line);
    /// Enough measurements came for a file to be kept.
    bool areWorthKeeping() const;

private:
    void take(const QString &line);
    void takeOwn(const Varnel3Data &record);

    QByteArray m_line; // the newest; keeps its memory, so that a line of usual length needs none
    int m_records = 0;
    bool m_newestReads = true; // as it was written
};
