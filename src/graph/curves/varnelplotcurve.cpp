#include "graph/curves/varnelplotcurve.h"

#include <QPainter>

VarnelPlotCurve::VarnelPlotCurve(const QString &title)
    : QwtPlotCurve(title)
{
    setPaintAttribute(ClipPolygons, false);
}

void VarnelPlotCurve::drawCurve(QPainter *painter, int style, const QwtScaleMap &xMap,
    const QwtScaleMap &yMap, const QRectF &canvasRect, int from, int to) const
{
    switch (style) {
    case Lines:
        if (testCurveAttribute(Fitted)) { // a fit needs all points
            from = 0;
            to = int(dataSize()) - 1;
        }
        drawLines(painter, xMap, yMap, canvasRect, from, to);
        break;
    case Sticks:
        drawSticks(painter, xMap, yMap, canvasRect, from, to);
        break;
    case Steps:
        drawSteps(painter, xMap, yMap, canvasRect, from, to);
        break;
    case Dots:
        drawDots(painter, xMap, yMap, canvasRect, from, to);
        break;
    default:
        break;
    }
}

void VarnelPlotCurve::drawLines(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
    const QRectF &canvasRect, int from, int to) const
{
    const bool hadClipping = painter->hasClipping();
    painter->setClipRect(canvasRect);
    QwtPlotCurve::drawLines(painter, xMap, yMap, canvasRect, from, to);
    painter->setClipping(hadClipping);
}
