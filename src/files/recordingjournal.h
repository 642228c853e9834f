#pragma once

#include "link/recordinglog.h"

#include <QByteArray>

class JournalWriter;

/// Decides what the journal of one live recording says of each line. It reads as a data file.
class RecordingJournal : public RecordingLog {
public:
    /// `writer` is not owned and outlives this.
    explicit RecordingJournal(JournalWriter &writer);
    /// Ends the recording; a file of fewer than two records is removed.
    ~RecordingJournal() override;
    RecordingJournal(const RecordingJournal &) = delete;
    RecordingJournal &operator=(const RecordingJournal &) = delete;

    void addRecord(const QString &line, const Varnel3Data &record) override;
    void addResistanceLine(const QString &line) override;

private:
    QByteArray recordLine(const QString &line, const Varnel3Data &record) const;

    JournalWriter &m_writer;
    int m_records = 0;
};
