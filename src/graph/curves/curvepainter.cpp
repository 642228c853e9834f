#include "graph/curves/curvepainter.h"

#include "graph/curves/curvedata.h"
#include "graph/curves/curveoutline.h"
#include "graph/curves/linedashes.h"
#include "graph/curves/pixels.h"
#include "graph/curves/varnelplotcurve.h"

#include <QPainter>

#include <qwt_painter.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int samplesForSpans = 2; // more of them on a column make a span worth while

constexpr int lineCount = 10; // one for each series but the cells, which share them

} // namespace

struct CurvePainter::Line {
    Line() { curve.setData(samples); }

    CurveData *const samples = new CurveData; // owned by the curve
    VarnelPlotCurve curve;
};

CurvePainter::CurvePainter()
    : m_lines(std::make_unique<Line[]>(lineCount))
{
}

CurvePainter::~CurvePainter() = default;
CurvePainter &CurvePainter::operator=(CurvePainter &&other) noexcept = default;

bool CurvePainter::Key::isOf(const Key &other) const
{
    return store == other.store && appendedTo == other.appendedTo && numbers == other.numbers;
}

// Shared by all curves of the same time map.
CurvePainter::Key CurvePainter::columnsKey(const Job &job)
{
    const QwtScaleMap &x = job.timeMap;
    return {job.store, job.store->appendedTo(), job.store->size(),
        {x.s1(), x.s2(), x.p1(), x.p2(), double(job.area.left()), double(job.area.right())}};
}

CurvePainter::Key CurvePainter::spansKey(const Job &job)
{
    const QwtScaleMap &x = job.timeMap;
    const QwtScaleMap &y = job.valueMap;
    const QRectF area = job.area;
    return {job.store, job.store->appendedTo(), job.store->size(),
        {x.s1(), x.s2(), x.p1(), x.p2(), y.s1(), y.s2(), y.p1(), y.p2(), area.x(), area.y(), area.width(),
            area.height(), double(job.first), double(job.pen.width())}};
}

// What was found of other samples still holds, so that more have been appended. The first points may change.
bool CurvePainter::isGrown(const Job &job, const Key &before, const Key &now)
{
    return now.isOf(before) && before.size > SeriesStore::firstResistance() + 1
        && job.store->isTimeMonotone();
}

void CurvePainter::updateColumns(const Job &job)
{
    const Key before = std::exchange(m_columnsKey, columnsKey(job));
    if (m_columnsKey == before)
        return;
    const PlotSeries &times = job.store->series(SeriesStore::Time);
    if (isGrown(job, before, m_columnsKey))
        m_columns.extend(times, job.timeMap);
    else
        m_columns.assign(times, job.store->isTimeMonotone(), job.timeMap, job.area.left(), job.area.right());
}

// Few samples are drawn as they are. Where times run back all count, since any may be on the area.
bool CurvePainter::isSparse(const Job &job) const
{
    const int samples = job.store->isTimeMonotone() ? m_columns.sampleCount() : job.store->size();
    return samples <= samplesForSpans * job.area.width();
}

void CurvePainter::draw(QPainter *painter, const Job &job)
{
    if (job.store->size() <= job.first || job.area.isEmpty())
        return;
    painter->save();
    painter->setClipRect(job.area, Qt::IntersectClip);
    painter->setPen(QPen(job.pen.color(), job.pen.width()));
    const PlotSeries &times = job.store->series(SeriesStore::Time);
    updateColumns(job);
    if (job.store->isTimeMonotone() && times[job.first] == times.last()) {
        drawMoment(painter, job);
    } else if (job.pen.style() != Qt::SolidLine) {
        drawDashes(painter, job);
    } else if (isSparse(job)) {
        drawLines(painter, job);
    } else if (QwtPainter::roundingAlignment(painter)) {
        spansOf(job).draw(painter);
    } else {
        QwtPainter::drawPolyline(
            painter, curveOutline(*job.store, job.series, job.first, job.timeMap, job.valueMap, job.area));
    }
    painter->restore();
}

const CurveSpans &CurvePainter::spansOf(const Job &job)
{
    Found &found = m_found[job.series];
    const Key before = std::exchange(found.key, spansKey(job));
    if (found.key == before)
        return found.spans;
    const PlotSeries values = job.store->series(job.series);
    const CurveSpans::Source source = {values, job.first, m_columns, job.valueMap};
    if (isGrown(job, before, found.key))
        found.spans.extend(source, job.area);
    else
        found.spans.assign(source, job.area, job.pen.width());
    return found.spans;
}

// The same pixels as without dashes, but for those in gaps; on finer devices, lines in pieces.
void CurvePainter::drawDashes(QPainter *painter, const Job &job)
{
    const LineDashes dashes(job.pen.style(), job.area.left(), job.dashUnit);
    const bool rounds = QwtPainter::roundingAlignment(painter);
    QPolygonF points;
    if (isSparse(job)) {
        const QVector<QPointF> samples = samplesOf(job);
        for (const QPointF &sample : samples) {
            const QPointF point(job.timeMap.transform(sample.x()), job.valueMap.transform(sample.y()));
            const QPointF place = rounds ? QPointF(std::round(point.x()), std::round(point.y())) : point;
            if (points.isEmpty() || points.last() != place)
                points.append(place);
        }
    } else if (rounds) {
        const CurveSpans &spans = spansOf(job);
        for (const QLine &line : spans.lines())
            points << line.p1() << line.p2();
        painter->setClipRegion(dashes.inked(job.area, spans.spans(), points), Qt::IntersectClip);
        return spans.draw(painter);
    } else {
        points = curveOutline(*job.store, job.series, job.first, job.timeMap, job.valueMap, job.area);
    }
    if (rounds)
        painter->setClipRegion(dashes.inked(job.area, {}, points), Qt::IntersectClip);
    else // ends as they are cut
        painter->setPen(QPen(job.pen.color(), job.pen.width(), Qt::SolidLine, Qt::FlatCap));
    const QVector<QPolygonF> pieces = rounds ? QVector<QPolygonF>{points} : dashes.pieces(job.area, points);
    for (const QPolygonF &piece : pieces)
        QwtPainter::drawPolyline(painter, piece);
}

// Those on the area and their neighbours; where times run back, all.
QVector<QPointF> CurvePainter::samplesOf(const Job &job) const
{
    int begin = job.first;
    int end = job.store->size();
    if (job.store->isTimeMonotone()) {
        begin = std::max(begin, m_columns.stretches().front().begin);
        end = m_columns.stretches().back().end;
    }
    const PlotSeries &times = job.store->series(SeriesStore::Time);
    const PlotSeries &values = job.store->series(job.series);
    QVector<QPointF> samples(qMax(0, end - begin));
    for (int i = begin; i < end; ++i)
        samples[i - begin] = {times[i], values[i]};
    return samples;
}

void CurvePainter::drawLines(QPainter *painter, const Job &job)
{
    const QVector<QPointF> samples = samplesOf(job);
    if (samples.isEmpty())
        return;
    Line &line = m_lines[size_t(job.series % lineCount)];
    line.samples->setSamples(samples);
    line.curve.setPen(painter->pen());
    line.curve.drawSeries(painter, job.timeMap, job.valueMap, job.area, 0, -1);
}

// A single record, or a clock that stands still: no line has a length. Each value gets its point; of so many
// that they are not worth their lines, the points cover the course.
void CurvePainter::drawMoment(QPainter *painter, const Job &job) const
{
    constexpr int reach = 2; // px, so that a lone point is seen
    const int x = pixelOf(job.timeMap, job.store->series(SeriesStore::Time).last());
    const QRect inside = job.area.adjusted(reach, reach, -reach, -reach); // for whole points
    const PlotSeries &values = job.store->series(job.series);
    const auto drawPoints = [&](double low, double high) {
        const int top = pixelOf(job.valueMap, high);
        const int bottom = pixelOf(job.valueMap, low);
        if (!job.area.intersects(QRect(QPoint(x, top), QPoint(x, bottom))))
            return;
        const QPoint first(
            qBound(inside.left(), x, inside.right()), qBound(inside.top(), top, inside.bottom()));
        const QPoint last(first.x(), qBound(inside.top(), bottom, inside.bottom()));
        painter->fillRect(QRect(first - QPoint(reach, reach), last + QPoint(reach, reach)), job.pen.color());
    };
    if (!isSparse(job)) {
        const Interval all = values.extremes(job.first, values.size());
        return drawPoints(all.low, all.high);
    }
    for (int i = job.first; i < values.size(); ++i)
        drawPoints(values[i], values[i]);
}
