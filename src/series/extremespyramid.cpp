#include "series/extremespyramid.h"

#include <algorithm>

void ExtremesPyramid::makeRoom(int kinds)
{
    m_kinds = std::size_t(kinds);
    m_newest.resize(m_kinds);
    for (std::vector<Interval> &level : m_levels) {
        if (level.capacity() - level.size() < m_kinds)
            level.reserve(level.size() + level.size() / 2 + m_kinds);
    }
}

void ExtremesPyramid::add(const Interval *ranges, int kinds)
{
    for (int kind = 0; kind < kinds; ++kind) {
        Interval &newest = m_newest[std::size_t(kind)];
        newest = m_blocks % fan == 0 ? ranges[kind] : newest;
        newest.take(ranges[kind]);
    }
    ++m_blocks;
    int groups = m_blocks;
    for (std::vector<Interval> &level : m_levels) {
        if (groups % fan != 0)
            return;
        groups /= fan;
        level.insert(level.end(), m_newest.begin(), m_newest.end());
        const std::size_t first = level.size() - m_kinds * std::size_t((groups - 1) % fan + 1);
        for (std::size_t i = first; i < level.size(); ++i) // with those that the next group has so far
            m_newest[(i - first) % m_kinds].take(level[i]);
    }
}
