#pragma once

#include "graph/graphcolours.h"
#include "graph/graphlayout.h"
#include "graph/graphpicture.h"

#include <QFont>

class QPainter;

/// What the parts of a graph's drawing share for one painting.
struct GraphCanvas {
    QPainter *painter;
    const GraphPicture &picture;
    GraphLayout layout;
    GraphColours colours;
    QwtScaleMap timeMap; ///< of the times shown; without records a second

    GraphCanvas(QPainter *painter, const GraphPicture &picture);

    /// Arial of `points` at 96 dpi, on every device, because the layout counts in such pixels.
    static QFont font(double points);
    /// font(points), or smaller so that `text` is at most `width` px wide, if that can still be read.
    static QFont fittedFont(double points, const QString &text, int width);
};
