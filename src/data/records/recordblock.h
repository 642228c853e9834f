#pragma once

#include "data/records/packedcolumn.h"
#include "data/records/recordcolumns.h"

class OpenRecords;

/// A whole block of records, packed. Lies in an arena and is neither copied nor destroyed: what it consists
/// of follows it in memory.
class RecordBlock {
public:
    /// The most bytes that a block takes.
    static std::size_t most();
    /// Packs a full block of `records` to `room`, which is aligned for it; `bytes` is what it took.
    static const RecordBlock *pack(const OpenRecords &records, char *room, std::size_t *bytes);

    int cells() const { return m_cells; }
    /// A column with its extremes; one of zeros for a cell of which no record tells anything.
    PackedColumn column(int column) const
    {
        return column < RecordColumns::ofCell(m_cells, RecordColumns::CellVoltage) ? columns()[column]
                                                                                   : PackedColumn();
    }
    NarrowNumbers numbers(int column) const { return this->column(column).numbers(start()); }
    bool hasFractions() const { return m_hasFractions; }
    /// RecordColumns::fraction() `index` of a record.
    double fraction(int index, int record) const;

private:
    RecordBlock() = default;

    const char *start() const { return reinterpret_cast<const char *>(this); }
    const PackedColumn *columns() const { return reinterpret_cast<const PackedColumn *>(this + 1); }
    PackedColumn *columns() { return reinterpret_cast<PackedColumn *>(this + 1); }
    PackedColumn packFraction(int index, const double *fractions, quint32 *end);

    int m_cells = 0;
    bool m_hasFractions = false;
    quint32 m_whole = 0; // bit i: fraction i is kept as it is, not in tenths
};
