#include "data/records/recordreader.h"

#include "data/records/recordlist.h"

#include <algorithm>
#include <type_traits>

namespace {

constexpr int length = RecordList::blockSize;

/// Calls set(record, figure) for each record of a column but the first, unless all figures are the same.
template <typename Set>
void setEach(const RecordBlock &block, int column, const Set &set)
{
    const NarrowNumbers numbers = block.numbers(column);
    if (numbers.width == 0)
        return;
    int figures[length];
    numbers.copy(0, length, figures);
    for (int i = 1; i < length; ++i)
        set(i, figures[i]);
}

/// Calls set(record, clock of its time, figure) for a part of the clock that tells something else than the
/// time, which none does; not for the first record.
template <typename Set>
void setClock(const RecordBlock &block, int column, const Set &set)
{
    if (block.column(column).isAll(0))
        return;
    const NarrowNumbers beyond = block.numbers(column);
    const NarrowNumbers times = block.numbers(RecordColumns::Time);
    for (int i = 1; i < length; ++i) {
        Varnel3Data clock;
        clock.setTime(times[i]);
        set(i, clock, beyond[i]);
    }
}

} // namespace

RecordReader::RecordReader(const RecordList &records)
    : m_records(records)
    , m_block(std::make_unique<Varnel3Data[]>(length)) // not while somebody writes, and expects to have it
{
}

RecordReader::~RecordReader() = default;

const Varnel3Data &RecordReader::at(int index)
{
    const int block = index / length;
    if (block >= m_records.packedBlocks()) {
        m_newest = m_records[index];
        return m_newest;
    }
    if (block != m_unpacked)
        unpack(block);
    return m_block[size_t(index % length)];
}

// The first of the block is what all are made of: it tells what does not change.
void RecordReader::unpack(int number)
{
    m_unpacked = number;
    Varnel3Data *const records = m_block.get();
    const RecordBlock &block = m_records.packed(number);
    std::fill_n(records, length, m_records[number * length]);
    setEach(block, RecordColumns::Time, [&](int i, int time) { records[i].setTime(time); });
    RecordColumns::eachOwn([&](auto field) {
        constexpr int column = field.column;
        constexpr auto member = field.member;
        using Figure = std::decay_t<decltype(records->*member)>;
        if (column == RecordColumns::Hour || column == RecordColumns::Minute
            || column == RecordColumns::Second)
            setClock(block, column, [&](int i, const Varnel3Data &clock, int beyond) {
                records[i].*member = Figure(quint32(clock.*member) + quint32(beyond));
            });
        else
            setEach(block, column, [&](int i, int figure) { records[i].*member = Figure(figure); });
    });
    for (int cell = 0; cell < block.cells(); ++cell) {
        RecordColumns::eachOfCell([&](auto field) {
            setEach(block, RecordColumns::ofCell(cell, RecordColumns::CellColumn(field.column)),
                [&](int i, int figure) { records[i].cells[cell].*field.member = figure; });
        });
    }
    for (int i = 0; i < RecordColumns::fractions && block.hasFractions(); ++i) {
        for (int record = 1; record < length; ++record)
            RecordColumns::fraction(records[record], i) = block.fraction(i, record);
    }
}
