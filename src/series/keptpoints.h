#pragma once

#include "data/records/blockarena.h"
#include "data/records/packedcolumn.h"
#include "series/serieskinds.h"

#include <vector>

/// What can't be told of a point from the figures of its own record: the smoothed series, and where the cells
/// were heard of last. In blocks, as the records.
class KeptPoints : public SeriesKinds {
public:
    static constexpr int length = PackedColumn::length;

    /// Of the records behind all blocks.
    struct Newest {
        int temperatures[length] = {}; ///< tenths of a degree
        int resistances[length] = {}; ///< mOhm
        double slopes[length] = {}; ///< mV/min
        int heardBefore = 0; ///< the last record before them that has cell data
    };

    Newest &newest() { return m_newest; }
    const Newest &newest() const { return m_newest; }
    int blocks() const { return int(m_blocks.size()); }
    /// Takes the memory for the next packNewest(). Throws std::bad_alloc, and has changed nothing.
    void makeRoom(BlockArena::Growth growth);
    /// What is newest, all of it, becomes a block.
    void packNewest();

    /// Temperature or Resistance. For these three `block` may be that of the newest.
    NarrowNumbers figures(int kind, int block) const;
    const double *slopes(int block) const;
    int heardBefore(int block) const;
    /// Temperature or Resistance of a block, with its extremes.
    const PackedColumn &column(int kind, int block) const;

private:
    struct Block;

    const Block &at(int block) const { return *m_blocks[size_t(block)]; }

    BlockArena m_arena;
    std::vector<const Block *> m_blocks; // in m_arena
    Newest m_newest;
};
