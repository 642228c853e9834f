#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

/// Draws the labels of a value axis with their unit.
void paintValueAxis(const GraphCanvas &canvas, const GraphScene::Axis &axis);
