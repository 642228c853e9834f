#include "graph/graphviewport.h"

#include "graph/curves/pixels.h"
#include "series/seriesstore.h"

#include <qwt_scale_engine.h>

#include <algorithm>
#include <cmath>
#include <limits>

GraphViewport::GraphViewport(const SeriesStore *store)
    : m_store(store)
{
}

GraphLayout GraphViewport::layout() const
{
    return {m_size, m_store->size()};
}

Interval GraphViewport::wholeTimes() const
{
    const PlotSeries &times = m_store->series(SeriesStore::Time);
    return times.isEmpty() ? Interval{0, 0} : Interval{times[0], times.last()};
}

QwtScaleMap GraphViewport::timeMap() const
{
    const Interval shown = m_zoom.isActive() ? m_zoom.times() : wholeTimes();
    return layout().timeMap(shown.low, shown.high);
}

void GraphViewport::resize(const QSize &size)
{
    m_size = size;
    if (!m_zoom.isActive())
        return;
    double low = m_zoom.times().low;
    double high = m_zoom.times().high;
    double step = 0.0;
    QwtLinearScaleEngine().autoScale(layout().zoomedMajorTicks(), low, high, step);
    const Interval whole = wholeTimes();
    m_zoom.setTimes({std::max(low, whole.low), std::min(high, whole.high)}, whole);
}

int GraphViewport::recordAt(int x) const
{
    const int count = m_store->size();
    const GraphLayout geometry = layout();
    if (count == 0 || x < geometry.plotLeft() || !geometry.isDrawable())
        return none;
    return recordAtTime(timeMap().invTransform(std::min(x, geometry.plotRight())));
}

int GraphViewport::recordAtTime(double time) const
{
    const PlotSeries &times = m_store->series(SeriesStore::Time);
    if (!m_store->isTimeMonotone()) {
        int nearest = none;
        double distance = std::numeric_limits<double>::infinity();
        times.eachPiece(0, times.size(), [&](int begin, const double *points, int count) {
            for (const double *point = points; point != points + count; ++point) {
                if (std::abs(*point - time) < distance) {
                    distance = std::abs(*point - time);
                    nearest = begin + int(point - points);
                }
            }
        });
        return nearest;
    }
    const int next = times.firstNot(1, [time](double earlier) { return earlier < time; });
    if (next == times.size() || time - times[next - 1] < times[next] - time)
        return next - 1;
    return next;
}

int GraphViewport::recordBeside(int record, int direction, int columns) const
{
    const int last = direction == 1 ? m_store->size() - 1 : 0;
    const int start = columnOf(record);
    const auto missing = [&](int index) { return columns - std::abs(columnOf(index) - start); };
    int beside = record;
    while (beside != last && missing(beside) > 0)
        beside += direction;
    const int before = beside - direction;
    return beside != record && before != record && missing(before) < -missing(beside) ? before : beside;
}

int GraphViewport::firstShown() const
{
    return m_zoom.isActive() ? shownNear(recordAtTime(m_zoom.times().low), 1) : 0;
}

int GraphViewport::lastShown() const
{
    return m_zoom.isActive() ? shownNear(recordAtTime(m_zoom.times().high), -1) : m_store->size() - 1;
}

// The nearest to an end may lie outside; between two records none is shown.
int GraphViewport::shownNear(int record, int inwards) const
{
    const PlotSeries &times = m_store->series(SeriesStore::Time);
    const int beside = qBound(0, record + inwards, times.size() - 1);
    const Interval shown = m_zoom.times();
    return !shown.contains(times[record]) && shown.contains(times[beside]) ? beside : record;
}

int GraphViewport::columnOf(int record) const
{
    return pixelOf(timeMap(), m_store->series(SeriesStore::Time)[record]);
}

std::optional<PlotArea> GraphViewport::areaAt(const QPoint &position) const
{
    for (PlotArea area : {PlotArea::Upper, PlotArea::Lower}) {
        if (layout().area(area).contains(position))
            return area;
    }
    return std::nullopt;
}

double GraphViewport::shareAt(PlotArea area, int y) const
{
    const Interval shown = m_zoom.share(area);
    return layout().valueMap(area, shown.low, shown.high).invTransform(y);
}

void GraphViewport::showRect(PlotArea area, const QRect &rect)
{
    const QwtScaleMap map = timeMap();
    m_zoom.show({map.invTransform(rect.left()), map.invTransform(rect.right())}, area,
        {shareAt(area, rect.bottom()), shareAt(area, rect.top())}, wholeTimes());
}

void GraphViewport::zoomTimes(double factor, int x)
{
    const GraphLayout geometry = layout();
    m_zoom.zoomTimes(
        factor, timeMap().invTransform(qBound(geometry.plotLeft(), x, geometry.plotRight())), wholeTimes());
}

void GraphViewport::zoomValues(double factor, PlotArea area, int y)
{
    m_zoom.zoomValues(factor, area, shareAt(area, y), wholeTimes());
}

void GraphViewport::moveBy(const QPoint &distance, PlotArea area)
{
    if (!m_zoom.isActive())
        return;
    const QRect rect = layout().area(area);
    m_zoom.moveTimes(-distance.x() * m_zoom.times().length() / (rect.width() - 1), wholeTimes());
    m_zoom.moveValues(distance.y() * m_zoom.share(area).length() / (rect.height() - 1), area);
}

void GraphViewport::reveal(int record)
{
    if (!m_zoom.isActive())
        return;
    const double time = m_store->series(SeriesStore::Time)[record];
    const Interval shown = m_zoom.times();
    m_zoom.moveTimes(std::min(0.0, time - shown.low) + std::max(0.0, time - shown.high), wholeTimes());
}
