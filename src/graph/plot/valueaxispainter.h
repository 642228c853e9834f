#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

class QwtScaleDraw;

/// Draws the labels of value axes with their unit.
class ValueAxisPainter {
public:
    explicit ValueAxisPainter(const GraphCanvas &canvas);

    void paint(const GraphScene::Axis &axis);

private:
    struct Place {
        int left, width;
    };

    static Place placeFor(const GraphLayout &layout, GraphScene::Side side);
    const QwtScaleDraw &scaleFor(const GraphScene::Axis &axis);
    void drawLabel(const Place &place, GraphScene::Side side, int baseline, const QString &text);

    const GraphCanvas &c;
};
