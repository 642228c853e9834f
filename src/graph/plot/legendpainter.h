#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

/// Draws the names and newest values of the curves in the column at the right edge.
void paintLegend(const GraphCanvas &canvas, const GraphScene &scene);
