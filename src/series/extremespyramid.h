#pragma once

#include "series/interval.h"

#include <cstddef>
#include <limits>
#include <vector>

/// The extremes of runs of blocks: of every four of them, of four such groups, and so on. A run of any length
/// is told by few of them. Takes less than a byte a record.
class ExtremesPyramid {
public:
    /// Takes the memory for the next add(). Throws std::bad_alloc, and has changed nothing.
    void makeRoom(int kinds);
    /// Adds a block: the extremes of its `kinds` series, always as many.
    void add(const Interval *ranges, int kinds);
    /// Those of a series in the blocks `begin`..`end` - 1, which were added, and of which there is at
    /// least one; ofBlock(block) gives those of one.
    template <typename OfBlock>
    Interval extremes(int kind, int begin, int end, const OfBlock &ofBlock) const
    {
        Interval found = {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
        for (int level = 0; begin < end; ++level) {
            const auto take
                = [&](int index) { found.take(level == 0 ? ofBlock(index) : at(level, index, kind)); };
            while (begin < end && (begin % fan != 0 || level == levels))
                take(begin++);
            while (begin < end && end % fan != 0)
                take(--end);
            begin /= fan;
            end /= fan;
        }
        return found;
    }

private:
    static constexpr int fan = 4;
    static constexpr int levels = 6; ///< the highest has four entries a million and a half records

    const Interval &at(int level, int group, int kind) const
    {
        return m_levels[level - 1][std::size_t(group) * m_kinds + std::size_t(kind)];
    }

    std::size_t m_kinds = 0;
    int m_blocks = 0;
    std::vector<Interval> m_newest; // of the group that is not full yet
    std::vector<Interval> m_levels[levels]; // group after group, series after series
};
