#pragma once

#include "link/recordinglog.h"

#include <QByteArray>

class JournalSink;

/// Decides what the journal of one live recording says of each line. It reads as a data file.
class RecordingJournal : public RecordingLog {
public:
    /// `sink` is not owned and outlives this.
    explicit RecordingJournal(JournalSink &sink);
    /// Ends the recording; one of fewer than two records is discarded.
    ~RecordingJournal() override;
    RecordingJournal(const RecordingJournal &) = delete;
    RecordingJournal &operator=(const RecordingJournal &) = delete;

    void addRecord(const QString &line, const Varnel3Data &record) override;
    void addResistanceLine(const QString &line) override;

private:
    void takeLine(const QString &line);
    void takeOwnLine(const Varnel3Data &record);

    JournalSink &m_sink;
    QByteArray m_line; // the newest; keeps its memory, so that a line of usual length needs none
    int m_records = 0;
    bool m_newestReads = true; // as it was written
};
