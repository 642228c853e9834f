#include "graph/scene/graphzoom.h"

namespace {

constexpr double leastTime = 10.0; // s; the axis divides in whole seconds
constexpr double leastShare = 0.001;
constexpr Interval all = {0.0, 1.0};

Interval noShorter(const Interval &interval, double least, const Interval &whole)
{
    return interval.length() > 0 ? interval.zoomed(1.0, (interval.low + interval.high) / 2, least, whole)
                                 : whole;
}

bool covers(const Interval &interval, const Interval &whole)
{
    return interval.low <= whole.low && interval.high >= whole.high;
}

} // namespace

Interval GraphZoom::share(PlotArea area) const
{
    return area == PlotArea::Upper ? m_upper : m_lower;
}

// A recording without duration has no part to show.
bool GraphZoom::begin(const Interval &whole)
{
    if (whole.length() <= 0)
        return false;
    if (!m_active)
        m_times = whole;
    m_active = true;
    return true;
}

void GraphZoom::endIfAll(const Interval &whole)
{
    if (covers(m_times, whole) && covers(m_upper, all) && covers(m_lower, all))
        reset();
}

void GraphZoom::show(const Interval &times, PlotArea area, const Interval &share, const Interval &whole)
{
    if (!begin(whole))
        return;
    m_times = noShorter(times, leastTime, whole);
    shareRef(area) = noShorter(share, leastShare, all);
    endIfAll(whole);
}

void GraphZoom::setTimes(const Interval &times, const Interval &whole)
{
    m_times = noShorter(times, leastTime, whole);
    endIfAll(whole);
}

void GraphZoom::zoomTimes(double factor, double centre, const Interval &whole)
{
    if (!begin(whole))
        return;
    m_times = m_times.zoomed(factor, centre, leastTime, whole);
    endIfAll(whole);
}

void GraphZoom::zoomValues(double factor, PlotArea area, double centre, const Interval &whole)
{
    if (!begin(whole))
        return;
    shareRef(area) = shareRef(area).zoomed(factor, centre, leastShare, all);
    endIfAll(whole);
}

void GraphZoom::moveTimes(double seconds, const Interval &whole)
{
    if (m_active)
        m_times = m_times.moved(seconds, whole);
}

void GraphZoom::moveValues(double share, PlotArea area)
{
    if (m_active)
        shareRef(area) = shareRef(area).moved(share, all);
}
