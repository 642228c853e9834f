#include "graph/curveoutline.h"

#include "graph/extremes.h"
#include "graph/timecolumns.h"
#include "graph/vectorstate.h"

#include <qwt_scale_map.h>

namespace {

constexpr int fineness = 2; // columns a pixel

} // namespace

QPolygonF curveOutline(const CurveSpans::Source &source, int count, const QRect &area)
{
    clearVectorState();
    QwtScaleMap fineMap = source.timeMap;
    fineMap.setPaintInterval(source.timeMap.p1() * fineness, source.timeMap.p2() * fineness);
    TimeColumns columns;
    columns.assign(source.times, count, fineMap, area.left() * fineness, area.right() * fineness);
    QPolygonF outline;
    const auto add = [&](int sample, double value) {
        const QPointF point(source.timeMap.transform(source.times[sample]), source.valueMap.transform(value));
        if (outline.isEmpty() || outline.last() != point)
            outline.append(point);
    };
    for (int i = 0; i < columns.columnCount(); ++i) {
        const int begin = qMax(columns.start(i), source.first);
        const int end = columns.start(i + 1);
        if (begin >= end)
            continue;
        const Interval extremes = extremesOf(source.values, begin, end);
        const int middle = begin + (end - begin) / 2;
        add(begin, source.values[begin]);
        add(middle, extremes.low);
        add(middle, extremes.high);
        add(end - 1, source.values[end - 1]);
    }
    return outline;
}
