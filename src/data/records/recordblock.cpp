#include "data/records/recordblock.h"

#include "data/records/openrecords.h"

#include <cmath>
#include <new>

namespace {

constexpr double tenths = 10.0; // a resistance comes as a whole number of them

quint32 columnCount(int cells, bool hasFractions)
{
    return quint32(RecordColumns::ofCell(cells, RecordColumns::CellVoltage)
        + RecordColumns::fractions * int(hasFractions));
}

/// Whether `fraction` is, to the bit, what a whole number of tenths makes; that number. One that is too large
/// for that becomes some other, whose tenths differ.
bool isTenths(double fraction, int *number)
{
    *number = int(std::lround(fraction * tenths));
    const double back = *number / tenths;
    return back == fraction && std::signbit(back) == std::signbit(fraction);
}

} // namespace

std::size_t RecordBlock::most()
{
    return sizeof(RecordBlock) + columnCount(Varnel3Data::maxCells, true) * sizeof(PackedColumn)
        + std::size_t(RecordColumns::columns) * PackedColumn::mostBytes
        + std::size_t(RecordColumns::fractions) * PackedColumn::length * sizeof(double);
}

const RecordBlock *RecordBlock::pack(const OpenRecords &records, char *room, std::size_t *bytes)
{
    auto *const block = new (room) RecordBlock;
    block->m_cells = records.cells();
    block->m_hasFractions = records.hasFractions();
    const quint32 count = columnCount(block->m_cells, block->m_hasFractions);
    PackedColumn *const columns = block->columns();
    auto end = quint32(sizeof(RecordBlock) + count * sizeof(PackedColumn));
    const int figures = RecordColumns::ofCell(block->m_cells, RecordColumns::CellVoltage);
    for (int column = 0; column < figures; ++column)
        new (columns + column) PackedColumn(PackedColumn::pack(records.figures(column), room, &end));
    for (int i = 0; i < RecordColumns::fractions && block->m_hasFractions; ++i)
        new (columns + figures + i) PackedColumn(block->packFraction(i, records.fractions(i), &end));
    *bytes = end;
    return block;
}

PackedColumn RecordBlock::packFraction(int index, const double *fractions, quint32 *end)
{
    constexpr std::size_t size = PackedColumn::length * sizeof(double);
    int numbers[PackedColumn::length];
    for (int i = 0; i < PackedColumn::length; ++i) {
        if (isTenths(fractions[i], numbers + i))
            continue;
        m_whole |= 1U << unsigned(index);
        PackedColumn column;
        column.place = *end;
        std::memcpy(reinterpret_cast<char *>(this) + *end, fractions, size);
        *end += quint32(size);
        return column;
    }
    return PackedColumn::pack(numbers, reinterpret_cast<char *>(this), end);
}

double RecordBlock::fraction(int index, int record) const
{
    if (!m_hasFractions)
        return 0.0;
    const PackedColumn &column
        = columns()[RecordColumns::ofCell(m_cells, RecordColumns::CellVoltage) + index];
    if ((m_whole >> unsigned(index) & 1) == 0)
        return column.numbers(start())[record] / tenths;
    double fraction;
    std::memcpy(&fraction, start() + column.place + sizeof(double) * size_t(record), sizeof fraction);
    return fraction;
}
