#include "graph/curves/curveoutline.h"

#include "series/seriesstore.h"
#include "graph/curves/timecolumns.h"
#include "graph/curves/vectorstate.h"

#include <QRect>

#include <qwt_scale_map.h>

namespace {

constexpr int fineness = 2; // columns a pixel

} // namespace

QPolygonF curveOutline(const SeriesStore &store, int series, int first, const QwtScaleMap &timeMap,
    const QwtScaleMap &valueMap, const QRect &area)
{
    clearVectorState();
    const PlotSeries &times = store.series(SeriesStore::Time);
    const PlotSeries &values = store.series(series);
    QwtScaleMap fineMap = timeMap;
    fineMap.setPaintInterval(timeMap.p1() * fineness, timeMap.p2() * fineness);
    TimeColumns columns;
    columns.assign(times, store.isTimeMonotone(), fineMap, area.left() * fineness, area.right() * fineness);
    QPolygonF outline;
    const auto add = [&](int sample, double value) {
        const QPointF point(timeMap.transform(times[sample]), valueMap.transform(value));
        if (outline.isEmpty() || outline.last() != point)
            outline.append(point);
    };
    for (const TimeColumns::Stretch &stretch : columns.stretches()) {
        const int begin = qMax(stretch.begin, first);
        const int end = stretch.end;
        if (begin >= end)
            continue;
        const Interval extremes = values.extremes(begin, end);
        const int middle = begin + (end - begin) / 2;
        add(begin, values[begin]);
        add(middle, extremes.low);
        add(middle, extremes.high);
        add(end - 1, values[end - 1]);
    }
    return outline;
}
