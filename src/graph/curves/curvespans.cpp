#include "graph/curves/curvespans.h"

#include "graph/curves/inkcolumns.h"
#include "graph/curves/pixels.h"
#include "series/plotseries.h"
#include "graph/curves/timecolumns.h"
#include "graph/curves/vectorstate.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr size_t ahead = 6; // columns whose samples are on their way from memory

} // namespace

// What lies between rows that the column holds anyway is not looked at.
CurveSpans::Column CurveSpans::columnAt(const Source &source, int x, int begin, int end)
{
    const int first = pixelOf(source.valueMap, source.values[begin]);
    const int last = pixelOf(source.valueMap, source.values[end - 1]);
    Column column = {x, qMin(first, last), qMax(first, last), first, last};
    source.values.tellExtremes(
        begin, end,
        [&](const Interval &range) {
            return column.holds(pixelOf(source.valueMap, range.low))
                && column.holds(pixelOf(source.valueMap, range.high));
        },
        [&](const Interval &range) {
            for (double value : {range.low, range.high}) {
                const int row = pixelOf(source.valueMap, value);
                column.top = qMin(column.top, row);
                column.bottom = qMax(column.bottom, row);
            }
        });
    return column;
}

void CurveSpans::assign(const Source &source, const QRect &area, int width)
{
    m_width = width;
    m_start = Start();
    extend(source, area);
}

void CurveSpans::extend(const Source &source, const QRect &area)
{
    clearVectorState();
    m_lines.resize(m_start.lines);
    m_spans.resize(m_start.spans);
    if (m_start.spans > 0)
        m_spans.last() = m_start.lastSpan;
    Column current = m_start.column;
    bool hasCurrent = m_start.hasColumn;
    const std::vector<TimeColumns::Stretch> &stretches = source.columns.stretches();
    for (size_t i = m_start.stretch; i < stretches.size(); ++i) {
        if (i + 1 == stretches.size())
            m_start = {i, hasCurrent, current, m_spans.size(), m_lines.size(),
                m_spans.isEmpty() ? QRect() : m_spans.last()};
        const TimeColumns::Stretch &stretch = stretches[i];
        if (i + 2 * ahead < stretches.size()) {
            source.values.fetchPlace(stretches[i + 2 * ahead].begin);
            source.values.fetch(stretches[i + ahead].begin);
        }
        const int begin = qMax(stretch.begin, source.first);
        if (begin >= stretch.end)
            continue;
        const Column next = columnAt(source, stretch.x, begin, stretch.end);
        if (hasCurrent) {
            join(&current, next);
            addSpan(current, area);
        }
        current = next;
        hasCurrent = true;
    }
    if (hasCurrent)
        addSpan(current, area);
    if (m_spans.size() > area.width() + 1) { // a wide one may reach in from beside the area
        removeOverdraw(area);
        m_start = Start();
    }
}

// Where times run back columns come again and again: each pixel is painted once, and most of the wide lines
// between neighbours lie on spans that came later.
void CurveSpans::removeOverdraw(const QRect &area)
{
    constexpr int longest = 16; // px of lines that are worth a look
    InkColumns ink(area);
    for (const QRect &span : qAsConst(m_spans))
        ink.fill(span);
    const auto isPainted = [&](const QLine &line) {
        QRect rect(QPoint(qMin(line.x1(), line.x2()), qMin(line.y1(), line.y2())),
            QPoint(qMax(line.x1(), line.x2()), qMax(line.y1(), line.y2())));
        if (m_width > 1)
            rect.adjust(-1, -1, 0, 0);
        return std::abs(line.dx()) <= longest && ink.covers(rect);
    };
    m_lines.erase(std::remove_if(m_lines.begin(), m_lines.end(), isPainted), m_lines.end());
    m_spans = ink.spans();
}

// A line of width 1 to the next column stays in its own column until the very last pixel, so that a longer
// span does for it. One of width 2 keeps to the rows of its ends and the columns of both spans; one that
// rises by a pixel, to the squares at its ends.
void CurveSpans::join(Column *column, const Column &next)
{
    const int rise = next.first - column->last;
    if (next.x != column->x + 1) {
        m_lines.append(QLine(column->x, column->last, next.x, next.first));
    } else if (m_width > 1) {
        if (std::abs(rise) > 1 && !(column->holds(next.first) && next.holds(column->last)))
            m_lines.append(QLine(column->x, column->last, next.x, next.first));
    } else if (rise > 0) {
        column->bottom = qMax(column->bottom, next.first - 1);
    } else if (rise < 0) {
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
        const bool continues = span.left() >= last.left() && span.left() <= last.right() + 1;
        if (continues && last.top() == span.top() && last.bottom() == span.bottom()) {
            last.setRight(qMax(last.right(), span.right()));
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
