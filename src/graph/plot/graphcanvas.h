#pragma once

#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/scene/graphrequest.h"

class GraphFonts;
class QPainter;
struct GraphTools;

/// What the parts of a graph's drawing share for one painting.
struct GraphCanvas {
    QPainter *painter;
    const GraphRequest &request;
    GraphTools &tools;
    GraphFonts &fonts;
    double scale; ///< of the painter, which counts in the layout's pixels
    GraphLayout layout;
    GraphColours colours;
    QwtScaleMap timeMap; ///< of the times shown; without records a second

    GraphCanvas(QPainter *painter, const GraphRequest &request, GraphTools &tools);
};
