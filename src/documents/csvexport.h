#pragma once

#include "files/filepieces.h"

#include "data/records/recordreader.h"

class SeriesStore;

/// A recording as comma-separated values for other programs: one header row with units, then one row a
/// record, in UTF-8 with '\n' line ends and decimal points, whatever the locale. Columns are the record's
/// own fields in the device's units, the cells of its widest record, and the derived series. A field that
/// a record does not have is left empty.
class CsvRows : public FilePieces {
public:
    /// `store` outlives this. It may grow meanwhile; what it holds now is written.
    explicit CsvRows(const SeriesStore &store);

    bool writeNext(QIODevice &device) override;
    bool atEnd() const override { return m_rows > m_count; }
    double progress() const override;

private:
    void lookForCells();
    bool writeRows(QIODevice &device);

    const SeriesStore &m_store;
    RecordReader m_records;
    const int m_count;
    const int m_markedFrom; // as it was then
    int m_looked = 0; // records whose cells were counted, so that the header knows the widest
    int m_cells = 0; // of the widest record
    int m_rows = 0; // written, that of the titles among them
};
