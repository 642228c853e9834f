#include "series/extremespyramid.h"

#include "series/serieskinds.h"

#include <memory>

void ExtremesPyramid::makeRoom(int kinds, BlockArena::Growth growth)
{
    static_assert(fan % stepsOfBlock == 0 && pageLength % stepsOfBlock == 0, "end with a block");
    int comes = stepsOfBlock;
    for (Level &level : m_levels) {
        if (std::size_t(level.count) == level.pages.size() * pageLength)
            addPage(&level, kinds, growth);
        if (level.count % fan + comes < fan)
            return; // nothing comes to the levels above
        comes = 1;
    }
}

void ExtremesPyramid::addPage(Level *level, int kinds, BlockArena::Growth growth)
{
    static_assert(SeriesKinds::kindCount * pageLength * sizeof(Interval) <= BlockArena::smallStep);
    const std::size_t entries = std::size_t(kinds) * pageLength;
    m_arena.makeRoom(entries * sizeof(Interval), growth);
    auto *const page = reinterpret_cast<Interval *>(m_arena.next());
    level->pages.push_back(page);
    std::uninitialized_default_construct_n(page, entries);
    m_arena.take(entries * sizeof(Interval));
}

void ExtremesPyramid::add(const Interval *ranges, int kinds)
{
    Level &lowest = m_levels[0];
    for (int kind = 0; kind < kinds; ++kind)
        lowest.at(kind, lowest.count) = ranges[kind];
    ++lowest.count;
    for (int i = 1; i < levelCount && m_levels[i - 1].count % fan == 0; ++i) {
        const Level &below = m_levels[i - 1];
        Level &level = m_levels[i];
        for (int kind = 0; kind < kinds; ++kind) {
            Interval &all = level.at(kind, level.count);
            all = below.at(kind, below.count - 1);
            for (int entry = below.count - fan; entry < below.count - 1; ++entry)
                all.take(below.at(kind, entry));
        }
        ++level.count;
    }
}

Interval ExtremesPyramid::extremes(int kind, int begin, int end) const
{
    Interval found = ofStep(kind, begin);
    for (const Level *level = m_levels; begin < end; ++level) {
        const bool isHighest = level == m_levels + levelCount - 1;
        while (begin < end && (begin % fan != 0 || isHighest))
            found.take(level->at(kind, begin++));
        while (begin < end && end % fan != 0)
            found.take(level->at(kind, --end));
        begin /= fan;
        end /= fan;
    }
    return found;
}
