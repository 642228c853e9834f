#pragma once

#include "overlay/courses/overlayvalues.h"
#include "series/interval.h"

#include <cstddef>
#include <vector>

class SeriesStore;

/// What an overlay keeps of one recording: the points that it compares, without the records; forty bytes for
/// each. Single precision tells more than any device sends.
class OverlayCourse {
public:
    using Points = std::vector<float>;

    /// Copies what `store` has, which may go afterwards. Throws std::bad_alloc where there is too little
    /// memory.
    explicit OverlayCourse(const SeriesStore &store);

    int size() const { return int(along(OverlayAxis::Time).size()); }
    /// The recording has such values: cells, a sensor, a charger that measures. Before firstPoint() they mean
    /// nothing.
    bool has(OverlayValue value) const { return !values(value).empty(); }
    static int firstPoint(OverlayValue value);
    const Points &values(OverlayValue value) const { return m_values[std::size_t(value)]; }
    /// s or mAh, as its device counts.
    const Points &along(OverlayAxis axis) const { return m_along[std::size_t(axis)]; }
    /// No point lies before its predecessor.
    bool isAscending(OverlayAxis axis) const { return m_ascending[std::size_t(axis)]; }
    /// From the lowest to the highest place, or value; of a recording that has any.
    Interval reach(OverlayAxis axis) const { return m_reach[std::size_t(axis)]; }
    Interval range(OverlayValue value) const { return m_range[std::size_t(value)]; }
    /// The point next to `place`, the first of several; -1 where the recording does not reach.
    int pointAt(OverlayAxis axis, double place) const;
    /// The first point with a tenth of the strongest current: where the process begins that the recording is
    /// of. 0 where none flows.
    int currentStart() const { return m_currentStart; }

private:
    void copyValues(const SeriesStore &store, OverlayValue value);
    void findCurrentStart();

    Points m_values[std::size_t(OverlayValue::Count)]; // empty where the recording has none
    Points m_along[2];
    Interval m_range[std::size_t(OverlayValue::Count)];
    Interval m_reach[2];
    bool m_ascending[2] = {true, true};
    int m_currentStart = 0;
};
