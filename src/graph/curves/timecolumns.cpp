#include "graph/curves/timecolumns.h"

#include "graph/curves/pixels.h"
#include "series/plotseries.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Recordings joined by the dozen and clocks set back now and then are drawn to the pixel. Beyond these the
// area is full of ink, and a repaint would take seconds.
constexpr size_t mostStretches = 131072;
constexpr size_t mostInk = 3000000; // pixels of the lines that skip columns
constexpr size_t inkOfLine = 64; // what a short one costs as much as

size_t roundedUp(size_t count, size_t most)
{
    return (count + most - 1) / most;
}

} // namespace

void TimeColumns::assign(const PlotSeries &times, bool ascending, const QwtScaleMap &map, int left, int right)
{
    m_left = left - 1;
    m_right = right + 1;
    m_sampleCount = 0;
    m_stretches.clear();
    if (ascending)
        assignAscending(times, map);
    else
        assignAny(times, map);
}

namespace {

auto isBefore(int column, const QwtScaleMap &map)
{
    return [column, &map](double time) { return pixelOf(map, time) < column; };
}

} // namespace

void TimeColumns::assignAscending(const PlotSeries &times, const QwtScaleMap &map)
{
    const int first = times.firstNot(0, isBefore(m_left, map));
    if (first > 0)
        m_stretches.push_back({pixelOf(map, times[first - 1]), first - 1, first});
    takeFrom(first, times, map);
}

// What lies before `from` is taken.
void TimeColumns::takeFrom(int from, const PlotSeries &times, const QwtScaleMap &map)
{
    const int first = from;
    int likely = 1;
    while (from != times.size()) {
        const int x = pixelOf(map, times[from]);
        if (x > m_right)
            break;
        const int next = times.firstNot(from, isBefore(x + 1, map), likely);
        m_stretches.push_back({x, from, next});
        likely = next - from + 1;
        from = next;
    }
    m_sampleCount += from - first;
    if (from != times.size())
        m_stretches.push_back({pixelOf(map, times[from]), from, from + 1});
}

// Only the last stretch can grow, and before it the neighbour on the left may still move.
void TimeColumns::extend(const PlotSeries &times, const QwtScaleMap &map)
{
    if (m_sampleCount == 0)
        return assign(times, true, map, m_left + 1, m_right - 1);
    const Stretch last = m_stretches.back();
    if (last.x > m_right)
        return;
    m_stretches.pop_back();
    m_sampleCount -= last.end - last.begin;
    takeFrom(last.begin, times, map);
}

void TimeColumns::assignAny(const PlotSeries &times, const QwtScaleMap &map)
{
    times.eachPiece(0, times.size(), [&](int begin, const double *points, int count) {
        for (int i = begin; i < begin + count; ++i) {
            const int x = pixelOf(map, points[i - begin]);
            m_sampleCount += sideOf(x) == 0;
            if (!m_stretches.empty() && m_stretches.back().x == x)
                m_stretches.back().end = i + 1;
            else
                add({x, i, i + 1});
        }
    });
    thinOut();
}

// Of what lies on one side of the area only the ends count.
void TimeColumns::add(const Stretch &stretch)
{
    const size_t count = m_stretches.size();
    const int side = sideOf(stretch.x);
    if (side != 0 && count > 1 && sideOf(m_stretches[count - 1].x) == side
        && sideOf(m_stretches[count - 2].x) == side)
        m_stretches.back() = stretch;
    else
        m_stretches.push_back(stretch);
}

void TimeColumns::thinOut()
{
    size_t ink = 0;
    for (size_t i = 1; i < m_stretches.size(); ++i) {
        const int from = std::clamp(m_stretches[i - 1].x, m_left, m_right);
        const int skipped = std::abs(std::clamp(m_stretches[i].x, m_left, m_right) - from);
        ink += skipped > 1 ? inkOfLine + size_t(skipped) : 0;
    }
    const size_t together = std::max(roundedUp(m_stretches.size(), mostStretches), roundedUp(ink, mostInk));
    if (together < 2)
        return;
    size_t kept = 0;
    for (size_t i = 0; i < m_stretches.size(); i += together) {
        const size_t last = std::min(i + together, m_stretches.size()) - 1;
        m_stretches[kept++] = {m_stretches[i].x, m_stretches[i].begin, m_stretches[last].end};
    }
    m_stretches.resize(kept);
}
