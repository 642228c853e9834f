#include "series/keptpoints.h"

#include <algorithm>
#include <new>

// Its figures follow it in memory.
struct KeptPoints::Block {
    PackedColumn temperatures;
    PackedColumn resistances;
    double slopes[length] = {};
    int heardBefore = 0;

    const char *start() const { return reinterpret_cast<const char *>(this); }
};

void KeptPoints::makeRoom(BlockArena::Growth growth)
{
    if (m_blocks.size() == m_blocks.capacity())
        m_blocks.reserve(m_blocks.size() + m_blocks.size() / 2 + 1);
    m_arena.makeRoom(sizeof(Block) + std::size_t(2 * PackedColumn::mostBytes), growth);
}

void KeptPoints::packNewest()
{
    char *const room = m_arena.next();
    auto *const block = new (room) Block;
    auto end = quint32(sizeof(Block));
    block->temperatures = PackedColumn::pack(m_newest.temperatures, room, &end);
    block->resistances = PackedColumn::pack(m_newest.resistances, room, &end);
    std::copy_n(m_newest.slopes, length, block->slopes);
    block->heardBefore = m_newest.heardBefore;
    m_arena.take(end);
    m_blocks.push_back(block);
}

const PackedColumn &KeptPoints::column(int kind, int block) const
{
    return kind == Temperature ? at(block).temperatures : at(block).resistances;
}

NarrowNumbers KeptPoints::figures(int kind, int block) const
{
    if (block < blocks())
        return column(kind, block).numbers(at(block).start());
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
