#include "graph/curves/linedashes.h"

#include <QRect>

#include <cmath>
#include <numeric>

namespace {

constexpr qreal steepFrom = 3; // units that a line rises in a column or two: more than what a gap may hide

// Told apart in a legend's stroke of a few dots.
QVector<int> lengthsOf(Qt::PenStyle style)
{
    switch (style) {
    case Qt::DashLine:
        return {4, 3};
    case Qt::DotLine:
        return {2, 2};
    case Qt::DashDotLine:
        return {8, 2, 2, 2};
    case Qt::DashDotDotLine:
        return {8, 2, 2, 2, 2, 2};
    default:
        return {};
    }
}

} // namespace

LineDashes::LineDashes(Qt::PenStyle style, qreal origin, qreal unit)
    : m_lengths(lengthsOf(style))
    , m_origin(origin)
    , m_unit(unit)
{
}

bool LineDashes::isSteep(qreal width, qreal height) const
{
    return isHigh(height) && height > width;
}

bool LineDashes::isHigh(qreal height) const
{
    return height > steepFrom * m_unit;
}

QVector<LineDashes::Stroke> LineDashes::strokes(qreal begin, qreal end) const
{
    if (isSolid())
        return {{begin, end}};
    QVector<Stroke> found;
    const qreal period = m_unit * std::accumulate(m_lengths.begin(), m_lengths.end(), 0);
    qreal at = m_origin + std::floor((begin - m_origin) / period) * period;
    for (int i = 0; at < end; i = (i + 1) % m_lengths.size()) {
        const qreal next = at + m_lengths[i] * m_unit;
        if (i % 2 == 0 && next > begin)
            found.append({qMax(at, begin), qMin(next, end)});
        at = next;
    }
    return found;
}

QVector<QPolygonF> LineDashes::pieces(const QRect &area, const QPolygonF &points) const
{
    if (isSolid())
        return {points};
    QVector<QPolygonF> found;
    const auto add = [&found](const QPointF &from, const QPointF &to) {
        if (found.isEmpty() || found.last().last() != from)
            found.append(QPolygonF(QVector<QPointF>{from}));
        found.last().append(to);
    };
    for (int i = 1; i < points.size(); ++i) {
        const QPointF &from = points[i - 1];
        const QPointF &to = points[i];
        const QPointF step = to - from;
        if (isSteep(std::abs(step.x()), std::abs(step.y()))) {
            add(from, to);
            continue;
        }
        constexpr qreal least = 0.01; // px
        const bool isUpright = from.x() == to.x(); // in a dash or in a gap
        const qreal begin = qMax(qMin(from.x(), to.x()), qreal(area.left() - 1));
        const qreal end = qMin(qMax(from.x(), to.x()) + (isUpright ? least : 0), qreal(area.right() + 2));
        const QVector<Stroke> all = strokes(begin, end);
        for (const Stroke &stroke : all) {
            const auto at = [&](qreal x) {
                return qFuzzyCompare(x, to.x()) || isUpright ? to : from + step * ((x - from.x()) / step.x());
            };
            add(isUpright || qFuzzyCompare(stroke.begin, from.x()) ? from : at(stroke.begin), at(stroke.end));
        }
    }
    return found;
}

QRegion LineDashes::inked(const QRect &area, const QVector<QRect> &spans, const QPolygonF &points) const
{
    if (isSolid())
        return area;
    QVector<bool> columns(area.width(), false);
    const auto ink = [&](qreal left, qreal right) { // both included
        const int first = qRound(qBound(qreal(0), left - area.left(), qreal(columns.size())));
        const int end = qRound(qBound(qreal(0), right + 1 - area.left(), qreal(columns.size())));
        std::fill(columns.begin() + first, columns.begin() + end, true);
    };
    const QVector<Stroke> all = strokes(area.left(), area.left() + columns.size());
    for (const Stroke &stroke : all)
        ink(stroke.begin, stroke.end - 1);
    for (const QRect &span : spans)
        if (isHigh(span.height()))
            ink(span.left(), span.right());
    for (int i = 1; i < points.size(); ++i) {
        const QPointF step = points[i] - points[i - 1];
        if (isSteep(std::abs(step.x()), std::abs(step.y())))
            ink(qMin(points[i].x(), points[i - 1].x()) - 1, qMax(points[i].x(), points[i - 1].x()));
    }
    QVector<QRect> rects;
    for (int x = 0; x < columns.size(); ++x) {
        if (!columns[x])
            continue;
        if (!rects.isEmpty() && rects.last().right() == area.left() + x - 1)
            rects.last().setRight(area.left() + x);
        else
            rects.append(QRect(area.left() + x, area.top(), 1, area.height()));
    }
    QRegion region;
    region.setRects(rects.constData(), rects.size());
    return region;
}
