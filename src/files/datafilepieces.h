#pragma once

#include "files/filepieces.h"

#include "data/records/recordreader.h"

#include <limits>
#include <memory>

class RecordList;

/// What a data file is to hold: each record as one line.
class DataFilePieces : public FilePieces {
public:
    /// `records` outlives this. It may grow meanwhile; what it holds now is written. Those from `markedFrom`
    /// on get an end mark.
    explicit DataFilePieces(const RecordList &records, int markedFrom = std::numeric_limits<int>::max());
    ~DataFilePieces() override;
    DataFilePieces(const DataFilePieces &) = delete;
    DataFilePieces &operator=(const DataFilePieces &) = delete;

    bool writeNext(QIODevice &device) override;
    bool atEnd() const override { return m_next == m_count; }
    double progress() const override;

    int recordCount() const { return m_count; }
    /// Records written so far whose lines the reader will refuse: no mode letter, no known chemistry.
    int unreadable() const { return m_unreadable; }

private:
    RecordReader m_records;
    const int m_count;
    const int m_markedFrom;
    int m_next = 0;
    int m_unreadable = 0;
    std::unique_ptr<char[]> m_buffer;
};
