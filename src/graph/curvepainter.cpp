#include "graph/curvepainter.h"

#include "graph/curvedata.h"
#include "graph/curveoutline.h"
#include "graph/pixels.h"
#include "graph/varnelplotcurve.h"

#include <QPainter>

#include <qwt_painter.h>

#include <algorithm>

namespace {

constexpr int samplesForSpans = 2; // more of them on a column make a span worth while

} // namespace

bool CurvePainter::Key::operator==(const Key &other) const
{
    return store == other.store && revision == other.revision && first == other.first && width == other.width
        && area == other.area && std::equal(std::begin(maps), std::end(maps), std::begin(other.maps));
}

CurvePainter::Key CurvePainter::keyOf(const Job &job)
{
    const QwtScaleMap &x = job.timeMap;
    const QwtScaleMap &y = job.valueMap;
    return {job.store, job.store->revision(), job.first, job.width, job.area,
        {x.s1(), x.s2(), x.p1(), x.p2(), y.s1(), y.s2(), y.p1(), y.p2()}};
}

void CurvePainter::updateColumns(const Job &job)
{
    Key key = keyOf(job);
    std::fill(key.maps + 4, key.maps + 8, 0.0); // shared by all curves of the same time map
    key.area = QRect(job.area.left(), 0, job.area.width(), 1);
    key.first = key.width = 0;
    if (key == m_columnsKey)
        return;
    m_columnsKey = key;
    m_columns.assign(job.store->series(SeriesStore::Time).begin(), job.store->size(),
        job.store->isTimeMonotone(), job.timeMap, job.area.left(), job.area.right());
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
    painter->setPen(QPen(job.colour, job.width));
    const PlotSeries &times = job.store->series(SeriesStore::Time);
    if (times[job.first]
        == times.last()) // a single record, or a clock that stands still: no line has a length
        drawPoint(painter, job);
    updateColumns(job);
    if (isSparse(job)) {
        drawLines(painter, job);
    } else if (QwtPainter::roundingAlignment(painter)) {
        drawSpans(painter, job);
    } else {
        QwtPainter::drawPolyline(
            painter, curveOutline(*job.store, job.series, job.first, job.timeMap, job.valueMap, job.area));
    }
    painter->restore();
}

void CurvePainter::drawSpans(QPainter *painter, const Job &job)
{
    Found &found = m_found[job.series];
    const Key key = keyOf(job);
    if (!(key == found.key)) {
        found.key = key;
        found.spans.assign(
            {job.store->series(job.series), job.first, m_columns, job.valueMap}, job.area, job.width);
    }
    found.spans.draw(painter);
}

// Lines through the samples on the area and their neighbours; where times run back, through all.
void CurvePainter::drawLines(QPainter *painter, const Job &job) const
{
    int begin = job.first;
    int end = job.store->size();
    if (job.store->isTimeMonotone()) {
        begin = std::max(begin, m_columns.stretches().front().begin);
        end = m_columns.stretches().back().end;
    }
    if (end - begin < 1)
        return;
    const PlotSeries &times = job.store->series(SeriesStore::Time);
    const PlotSeries &values = job.store->series(job.series);
    QVector<QPointF> samples(end - begin);
    for (int i = begin; i < end; ++i)
        samples[i - begin] = {times[i], values[i]};
    VarnelPlotCurve curve;
    curve.setPen(painter->pen());
    curve.setData(new CurveData(samples)); // owned by the curve
    curve.drawSeries(painter, job.timeMap, job.valueMap, job.area, 0, -1);
}

void CurvePainter::drawPoint(QPainter *painter, const Job &job) const
{
    constexpr int reach = 2; // px, so that a lone sample is seen
    const QPoint centre(pixelOf(job.timeMap, job.store->series(SeriesStore::Time).last()),
        pixelOf(job.valueMap, job.store->series(job.series).last()));
    painter->fillRect(QRect(centre - QPoint(reach, reach), centre + QPoint(reach, reach)), job.colour);
}
