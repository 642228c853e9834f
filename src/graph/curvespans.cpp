#include "graph/curvespans.h"

#include "graph/extremes.h"
#include "graph/timecolumns.h"
#include "graph/vectorstate.h"

#include <QPainter>

#include <qwt_scale_map.h>

#include <algorithm>

namespace {

int pixel(const QwtScaleMap &map, double value)
{
    constexpr double far = 1e6; // no screen is that large, and sums of such numbers stay integers
    return qRound(qBound(-far, map.transform(value), far));
}

} // namespace

CurveSpans::Column CurveSpans::columnAt(const Source &source, int x, int begin, int end)
{
    const Interval extremes = extremesOf(source.values, begin, end);
    const int a = pixel(source.valueMap, extremes.low);
    const int b = pixel(source.valueMap, extremes.high);
    return {x, qMin(a, b), qMax(a, b), pixel(source.valueMap, source.values[begin]),
        pixel(source.valueMap, source.values[end - 1])};
}

void CurveSpans::assign(const Source &source, const QRect &area, int width)
{
    clearVectorState();
    m_width = width;
    m_spans.clear();
    m_lines.clear();
    const TimeColumns &columns = source.columns;
    const auto sampleColumn = [&source](int sample) {
        return columnAt(source, pixel(source.timeMap, source.times[sample]), sample, sample + 1);
    };

    Column current = {0, 0, 0, 0, 0};
    bool hasCurrent = columns.start(0) > source.first;
    if (hasCurrent)
        current = sampleColumn(columns.start(0) - 1); // the last one left of the area
    for (int i = 0; i < columns.columnCount(); ++i) {
        const int begin = qMax(columns.start(i), source.first);
        const int end = columns.start(i + 1);
        if (begin >= end)
            continue;
        const Column next = columnAt(source, columns.left() + i, begin, end);
        if (hasCurrent) {
            join(&current, next);
            addSpan(current, area);
        }
        current = next;
        hasCurrent = true;
    }
    const int beyond = columns.start(columns.columnCount());
    if (hasCurrent && beyond < columns.seriesSize() && beyond >= source.first)
        join(&current, sampleColumn(beyond));
    if (hasCurrent)
        addSpan(current, area);
}

// A line of width 1 to the next column stays in its own column until the very last pixel, so that a longer span does
// for it; all others are drawn.
void CurveSpans::join(Column *column, const Column &next)
{
    if (m_width > 1 || next.x != column->x + 1) {
        m_lines.append(QLine(column->x, column->last, next.x, next.first));
    } else if (next.first > column->last) {
        column->bottom = qMax(column->bottom, next.first - 1);
    } else if (next.first < column->last) {
        column->top = qMin(column->top, next.first + 1);
    }
}

void CurveSpans::addSpan(const Column &column, const QRect &area)
{
    QRect span(column.x, column.top, 1, column.bottom - column.top + 1);
    if (m_width > 1) // a pen of width 2 lies above and left of its line
        span.adjust(-1, -1, 0, 0);
    span &= area;
    if (span.isEmpty())
        return;
    if (!m_spans.isEmpty()) { // a level stretch is one rectangle
        QRect &last = m_spans.last();
        if (last.top() == span.top() && last.bottom() == span.bottom() && last.right() + 1 >= span.left()) {
            last.setRight(span.right());
            return;
        }
    }
    m_spans.append(span);
}

void CurveSpans::draw(QPainter *painter) const
{
    painter->drawLines(m_lines);
    painter->save();
    painter->setBrush(painter->pen().color());
    painter->setPen(Qt::NoPen);
    painter->drawRects(m_spans);
    painter->restore();
}
