#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

/// Draws the cursor line at `record` with the values that it has there.
void paintCursor(const GraphCanvas &canvas, const GraphScene &scene, int record);
/// Draws the line of the second cursor at `record`.
void paintMark(const GraphCanvas &canvas, int record);
/// Draws the rectangle being picked.
void paintRubberBand(const GraphCanvas &canvas, const QRect &rect);
