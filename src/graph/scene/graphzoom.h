#pragma once

#include "series/interval.h"

/// The two plot areas of a graph, one above the other.
enum class PlotArea { Upper, Lower };

/// The part of a recording that is shown. Both plots share the times; each has its own share of the values, 0
/// the bottom and 1 the top of what it shows in full.
class GraphZoom {
public:
    bool isActive() const { return m_active; }
    const Interval &times() const { return m_times; } ///< s; only while active
    Interval share(PlotArea area) const; ///< all of it while not active

    /// Shows `times`, or a little more where they are too short to be divided, and `share` of the values of
    /// `area`. `whole` are the times of the recording, here and below; all of everything ends the zoom.
    void show(const Interval &times, PlotArea area, const Interval &share, const Interval &whole);
    void zoomTimes(double factor, double centre, const Interval &whole);
    void zoomValues(double factor, PlotArea area, double centre, const Interval &whole);
    /// While active: moves by a number of seconds, never past the recording,
    /// and by a share of a plot's values.
    void moveTimes(double seconds, const Interval &whole);
    void moveValues(double share, PlotArea area);
    void setTimes(const Interval &times, const Interval &whole);
    void reset() { *this = GraphZoom(); }

private:
    bool begin(const Interval &whole);
    void endIfAll(const Interval &whole);
    Interval &shareRef(PlotArea area) { return area == PlotArea::Upper ? m_upper : m_lower; }

    bool m_active = false;
    Interval m_times;
    Interval m_upper;
    Interval m_lower;
};
