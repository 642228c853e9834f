#include "graph/curves/curvespans.h"

#include "graph/curves/inkcolumns.h"
#include "graph/curves/pixels.h"
#include "series/plotseries.h"
#include "graph/curves/timecolumns.h"
#include "graph/curves/vectorstate.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

struct Rows {
    int top, bottom;

    bool holds(const Rows &other) const { return other.top >= top && other.bottom <= bottom; }
};

// Values stand higher the more they are, or lower, so that extremes are extremes in rows, too.
Rows rowsOf(const CurveSpans::Source &source, const Interval &range)
{
    const int low = pixelOf(source.valueMap, range.low);
    const int high = pixelOf(source.valueMap, range.high);
    return {qMin(low, high), qMax(low, high)};
}

} // namespace

// What lies on rows that the column covers anyway is not looked at.
CurveSpans::Column CurveSpans::columnAt(const Source &source, int x, int begin, int end)
{
    constexpr double beyond = std::numeric_limits<double>::infinity();
    Interval found = {beyond, -beyond};
    source.values.tellExtremes(
        begin, end,
        [&](const Interval &range) {
            if (found.contains(range.low) && found.contains(range.high))
                return true;
            return found.low <= found.high && rowsOf(source, found).holds(rowsOf(source, range));
        },
        [&](const Interval &range) { found.take(range); });
    const Rows rows = rowsOf(source, found);
    return {x, rows.top, rows.bottom, begin, end};
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
    if (!m_spans.isEmpty())
        m_spans.last() = m_start.lastSpan;
    Column current = m_start.column;
    bool hasCurrent = m_start.hasColumn;
    const std::vector<TimeColumns::Stretch> &stretches = source.columns.stretches();
    for (size_t i = m_start.stretch; i < stretches.size(); ++i) {
        if (i + 1 == stretches.size())
            m_start = {i, hasCurrent, current, m_spans.size(), m_lines.size(),
                m_spans.isEmpty() ? QRect() : m_spans.last()};
        const TimeColumns::Stretch &stretch = stretches[i];
        const int begin = qMax(stretch.begin, source.first);
        if (begin >= stretch.end)
            continue;
        const Column next = columnAt(source, stretch.x, begin, stretch.end);
        if (hasCurrent) {
            join(source, &current, next);
            addSpan(current, area);
        }
        current = next;
        hasCurrent = true;
    }
    if (hasCurrent)
        addSpan(current, area);
    if (m_spans.size() > area.width() + 1) // a wide one may reach in from beside the area
        removeOverdraw(area); // of times that run back, to which nothing is added
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

// Whether the two need nothing between them, wherever in their rows the one ends and the other begins.
bool CurveSpans::isJoined(const Column &column, const Column &next) const
{
    if (next.x != column.x + 1)
        return false;
    if (m_width == 1)
        return next.top >= column.top - 1 && next.bottom <= column.bottom + 1;
    return (next.top == column.top && next.bottom == column.bottom)
        || qMax(next.bottom, column.bottom) - qMin(next.top, column.top) <= 1;
}

// A line of width 1 to the next column stays in its own column until the very last pixel, so that a longer
// span does for it. One of width 2 keeps to the rows of its ends and the columns of both spans; one that
// rises by a pixel, to the squares at its ends. Mostly the rows tell that there is nothing to join; then the
// samples at the ends, which may be far away in memory, are not looked at.
void CurveSpans::join(const Source &source, Column *column, const Column &next)
{
    if (isJoined(*column, next))
        return;
    const int from = pixelOf(source.valueMap, source.values[column->end - 1]);
    const int to = pixelOf(source.valueMap, source.values[next.begin]);
    if (next.x != column->x + 1) {
        m_lines.append(QLine(column->x, from, next.x, to));
    } else if (m_width > 1) {
        if (std::abs(to - from) > 1 && !(column->holds(to) && next.holds(from)))
            m_lines.append(QLine(column->x, from, next.x, to));
    } else {
        column->bottom = qMax(column->bottom, to - 1);
        column->top = qMin(column->top, to + 1);
    }
}

void CurveSpans::addSpan(const Column &column, const QRect &area)
{
    const int wider = m_width > 1 ? 1 : 0; // a pen of width 2 lies above and left of its line
    QRect span;
    span.setCoords(qMax(column.x - wider, area.left()), qMax(column.top - wider, area.top()),
        qMin(column.x, area.right()), qMin(column.bottom, area.bottom()));
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
    painter->setBrush(painter->pen().color());
    painter->setPen(Qt::NoPen);
    painter->drawRects(m_spans);
}
