#include "graph/curves/curvedata.h"

CurveData::CurveData(const QVector<QPointF> &samples)
    : QwtArraySeriesData<QPointF>(samples)
{
}

QRectF CurveData::boundingRect() const
{
    d_boundingRect = qwtBoundingRect(*this);
    return d_boundingRect;
}
