#pragma once

#include <qwt_plot_curve.h>

/// A curve for a widget without a plot canvas: it keeps its lines inside the rectangle that it is given.
class VarnelPlotCurve : public QwtPlotCurve {
public:
    explicit VarnelPlotCurve(const QString &title = QString());

protected:
    void drawCurve(QPainter *painter, int style, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
        const QRectF &canvasRect, int from, int to) const override;
    void drawLines(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
        const QRectF &canvasRect, int from, int to) const override;
};
