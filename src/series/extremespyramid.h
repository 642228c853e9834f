#pragma once

#include "data/records/blockarena.h"
#include "data/records/packedcolumn.h"
#include "series/interval.h"

#include <cstddef>
#include <vector>

/// The extremes of each step of a recording's series, of every four steps, of every four of those, and so on:
/// a run of any length is told by a few of them. Takes a few bytes a record, and grows in pages, so that
/// nothing is copied.
class ExtremesPyramid {
public:
    static constexpr int step = 64; ///< records
    static constexpr int stepsOfBlock = PackedColumn::length / step;

    /// Takes the memory for the next add() of as many steps as a block has. Throws std::bad_alloc, and has
    /// changed nothing.
    void makeRoom(int kinds, BlockArena::Growth growth);
    /// Adds a step: the extremes of its `kinds` series, always as many.
    void add(const Interval *ranges, int kinds);
    /// Those of a series in a step that was added.
    const Interval &ofStep(int kind, int index) const { return m_levels[0].at(kind, index); }
    /// Those in the steps `begin`..`end` - 1, which were added, and of which there is at least one.
    Interval extremes(int kind, int begin, int end) const;

private:
    static constexpr int fan = 4;
    static constexpr int levelCount = 7; ///< the highest has four entries a million records
    static constexpr int pageLength = 64; ///< entries of each series

    /// In each page series after series, so that what a curve asks for lies side by side.
    struct Level {
        std::vector<Interval *> pages; // in m_arena
        int count = 0; ///< entries of each series

        Interval &at(int kind, int entry) const
        {
            return pages[std::size_t(entry) / pageLength]
                        [std::size_t(kind) * pageLength + std::size_t(entry) % pageLength];
        }
    };

    void addPage(Level *level, int kinds, BlockArena::Growth growth);

    BlockArena m_arena;
    Level m_levels[levelCount];
};
