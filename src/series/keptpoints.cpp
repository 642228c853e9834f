#include "series/keptpoints.h"

#include "series/extremes.h"

#include <algorithm>
#include <new>

// Its figures and then the extremes of its cells follow it in memory.
struct KeptPoints::Block {
    PackedColumn temperatures;
    PackedColumn resistances;
    Interval slopeRange;
    double slopes[length] = {};
    int heardBefore = 0;
    int cellCount = 0;
    quint32 cells = 0; // their place

    const char *start() const { return reinterpret_cast<const char *>(this); }
};

void KeptPoints::makeRoom(BlockArena::Growth growth)
{
    if (m_blocks.size() == m_blocks.capacity())
        m_blocks.reserve(m_blocks.size() + m_blocks.size() / 2 + 1);
    m_arena.makeRoom(
        sizeof(Block) + std::size_t(2 * PackedColumn::mostBytes) + kindCount * sizeof(Interval), growth);
}

void KeptPoints::packNewest(const Interval *cells, int count)
{
    char *const room = m_arena.next();
    auto *const block = new (room) Block;
    auto end = quint32(sizeof(Block));
    block->temperatures = PackedColumn::pack(m_newest.temperatures, room, &end);
    block->resistances = PackedColumn::pack(m_newest.resistances, room, &end);
    std::copy_n(m_newest.slopes, length, block->slopes);
    block->slopeRange = extremesOf(block->slopes, 0, length);
    block->heardBefore = m_newest.heardBefore;
    block->cells = end;
    block->cellCount = count;
    std::uninitialized_copy_n(cells, count, reinterpret_cast<Interval *>(room + end));
    m_arena.take(end + std::size_t(count) * sizeof(Interval));
    m_blocks.push_back(block);
}

NarrowNumbers KeptPoints::figures(int kind, int block) const
{
    if (block < blocks())
        return (kind == Temperature ? at(block).temperatures : at(block).resistances)
            .numbers(at(block).start());
    return {
        reinterpret_cast<const char *>(kind == Temperature ? m_newest.temperatures : m_newest.resistances), 0,
        int(sizeof(int))};
}

const double *KeptPoints::slopes(int block) const
{
    return block < blocks() ? at(block).slopes : m_newest.slopes;
}

int KeptPoints::heardBefore(int block) const
{
    return block < blocks() ? at(block).heardBefore : m_newest.heardBefore;
}

Interval KeptPoints::extremes(int kind, int block) const
{
    if (kind == Dv)
        return at(block).slopeRange;
    const PackedColumn &column = kind == Temperature ? at(block).temperatures : at(block).resistances;
    return {double(column.low), double(column.high)};
}

Interval KeptPoints::cellExtremes(int kind, int block) const
{
    const auto *const all = reinterpret_cast<const Interval *>(at(block).start() + at(block).cells);
    return all[at(block).cellCount == 1 ? 0 : kind - CellMin];
}
