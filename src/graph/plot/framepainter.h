#pragma once

#include "graph/plot/graphcanvas.h"

/// Draws what stands around the curves: background, badge, information line, time axis, grids and side lines.
class FramePainter {
public:
    explicit FramePainter(const GraphCanvas &canvas);

    void paintBackground();
    /// The window number in the corner.
    void paintBadge();
    /// The note and the newest values.
    void paintInformation();
    void paintTimeAxis();
    /// Grids of both plots. With `perCell` they run only inside the plots.
    void paintGrid(bool perCell);
    /// "NO DATA" in `rect` and, below it, why.
    void paintNoData(const QRect &rect, double points, const QColor &colour, const QString &reason);

private:
    struct Tick {
        int x;
        double time; // s
    };

    QVector<Tick> ticks() const;
    QVector<Tick> zoomedTicks() const;
    int lastNumber(const QVector<Tick> &ticks) const;
    void paintPlotGrid(PlotArea area);

    const GraphCanvas &c;
    QPainter *p;
};
