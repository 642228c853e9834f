#include "overlay/courses/overlaycourse.h"

#include "series/seriesstore.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double partOfCurrent = 0.1; // of the strongest; what flows before is a test or noise

// What a graph window draws none of, an overlay does not either.
bool isMeasured(const SeriesStore &store, OverlayValue value)
{
    const int kind = overlayScale(value).series;
    if (kind >= SeriesStore::CellMin)
        return store.hasCellData();
    const bool isZero = store.series(kind).minimum() == 0.0 && store.series(kind).maximum() == 0.0;
    if (value == OverlayValue::Temperature)
        return !isZero;
    if (value == OverlayValue::Resistance)
        return !isZero && store.size() > SeriesStore::firstResistance()
            && store.records().last().mode == Varnel3Data::Charge;
    return true;
}

template <typename Series>
OverlayCourse::Points copied(const Series &series)
{
    OverlayCourse::Points points(std::size_t(series.size()));
    for (int i = 0; i < series.size(); ++i)
        points[std::size_t(i)] = float(series[i]);
    return points;
}

Interval extremes(const OverlayCourse::Points &points, int first)
{
    const auto [low, high] = std::minmax_element(points.begin() + first, points.end());
    return {*low, *high};
}

} // namespace

OverlayCourse::OverlayCourse(const SeriesStore &store)
{
    if (store.isEmpty())
        return;
    for (OverlayAxis axis : {OverlayAxis::Time, OverlayAxis::Charge}) {
        Points &places = m_along[std::size_t(axis)];
        places = copied(store.series(axis == OverlayAxis::Time ? SeriesStore::Time : SeriesStore::Energy));
        m_reach[std::size_t(axis)] = extremes(places, 0);
        m_ascending[std::size_t(axis)] = std::is_sorted(places.begin(), places.end());
    }
    for (int value = 0; value < int(OverlayValue::Count); ++value)
        copyValues(store, OverlayValue(value));
    findCurrentStart();
}

void OverlayCourse::copyValues(const SeriesStore &store, OverlayValue value)
{
    if (!isMeasured(store, value))
        return;
    Points &points = m_values[std::size_t(value)];
    points = copied(store.series(overlayScale(value).series));
    m_range[std::size_t(value)] = extremes(points, firstPoint(value));
}

int OverlayCourse::firstPoint(OverlayValue value)
{
    return value == OverlayValue::Resistance ? SeriesStore::firstResistance() : 0;
}

void OverlayCourse::findCurrentStart()
{
    const Interval currents = range(OverlayValue::Current);
    const double strongest = std::max(currents.high, -currents.low);
    const Points &all = values(OverlayValue::Current);
    const auto flows = [=](float current) { return std::abs(current) >= strongest * partOfCurrent; };
    m_currentStart = int(std::find_if(all.begin(), all.end(), flows) - all.begin());
}

int OverlayCourse::pointAt(OverlayAxis axis, double place) const
{
    const Points &places = along(axis);
    if (places.empty() || !reach(axis).contains(place))
        return -1;
    const auto distance = [place](float at) { return std::abs(at - place); };
    const auto nearer = [&](float a, float b) { return distance(a) < distance(b); };
    if (!isAscending(axis))
        return int(std::min_element(places.begin(), places.end(), nearer) - places.begin());
    auto nearest = std::lower_bound(places.begin(), places.end(), place); // there is one, since it reaches
    if (nearest != places.begin() && nearer(nearest[-1], *nearest))
        nearest = std::lower_bound(places.begin(), nearest, nearest[-1]);
    return int(nearest - places.begin());
}
