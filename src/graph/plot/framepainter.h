#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

// What stands around the curves.

void paintBackground(const GraphCanvas &canvas);
/// The window number in the corner.
void paintBadge(const GraphCanvas &canvas);
/// The note and the newest values, or what lies between two cursors.
void paintInformation(const GraphCanvas &canvas, const GraphScene &scene);
void paintTimeAxis(const GraphCanvas &canvas);
/// Grids of both plots and the lines beside them. With `perCell` grids run only inside the plots.
void paintGrid(const GraphCanvas &canvas, bool perCell);
/// "NO DATA" in `rect` and, below it, why.
void paintNoData(
    const GraphCanvas &canvas, const QRect &rect, double points, const QColor &colour, const QString &reason);
