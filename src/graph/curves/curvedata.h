#pragma once

#include <QPointF>

#include <qwt_series_data.h>

/// Samples of a curve that grow while a recording runs: the bounding rectangle is never served from a cache.
class CurveData : public QwtArraySeriesData<QPointF> {
public:
    CurveData() = default;
    explicit CurveData(const QVector<QPointF> &samples);

    QRectF boundingRect() const override;
};
