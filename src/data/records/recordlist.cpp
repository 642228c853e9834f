#include "data/records/recordlist.h"

#include <type_traits>
#include <utility>

namespace {

template <typename Figure>
void setFigure(Figure *figure, int number)
{
    if constexpr (std::is_same_v<Figure, bool>)
        *figure = number != 0;
    else
        *figure = Figure(number);
}

// From what keeps the columns of a block.
template <typename Block>
Varnel3Data recordOf(const Block &block, int index)
{
    Varnel3Data record;
    RecordColumns::eachOwn(
        [&](auto field) { setFigure(&(record.*field.member), block.numbers(field.column)[index]); });
    Varnel3Data clock;
    clock.setTime(record.time);
    record.hour = int(quint32(record.hour) + quint32(clock.hour));
    record.minute = int(quint32(record.minute) + quint32(clock.minute));
    record.second = int(quint32(record.second) + quint32(clock.second));
    for (int cell = 0; cell < block.cells(); ++cell) {
        RecordColumns::eachOfCell([&](auto field) {
            const int place = RecordColumns::ofCell(cell, RecordColumns::CellColumn(field.column));
            record.cells[cell].*field.member = block.numbers(place)[index];
        });
    }
    for (int i = 0; i < RecordColumns::fractions && block.hasFractions(); ++i)
        RecordColumns::fraction(record, i) = block.fraction(i, index);
    return record;
}

} // namespace

RecordList &RecordList::operator=(RecordList &&other) noexcept
{
    RecordList taken(std::move(other));
    swap(taken);
    return *this;
}

Varnel3Data RecordList::operator[](int index) const
{
    const int block = index / blockSize;
    return block < packedBlocks() ? recordOf(packed(block), index % blockSize)
                                  : recordOf(m_open, index % blockSize);
}

void RecordList::makeRoom(BlockArena::Growth growth)
{
    if (!m_open.isFull())
        return m_open.makeRoom();
    if (m_blocks.size() == m_blocks.capacity())
        m_blocks.reserve(m_blocks.size() + m_blocks.size() / 2 + 1);
    m_arena.makeRoom(RecordBlock::most(), growth);
}

void RecordList::append(const Varnel3Data &record, BlockArena::Growth growth)
{
    makeRoom(growth);
    if (m_open.isFull()) {
        std::size_t bytes = 0;
        m_blocks.push_back(RecordBlock::pack(m_open, m_arena.next(), &bytes));
        m_arena.take(bytes);
        m_open.restart();
    }
    m_open.add(record);
}

void RecordList::clear()
{
    RecordList none;
    swap(none);
}

void RecordList::swap(RecordList &other) noexcept
{
    std::swap(m_arena, other.m_arena);
    m_blocks.swap(other.m_blocks);
    std::swap(m_open, other.m_open);
}
