#pragma once

#include "graph/graphcanvas.h"
#include "graph/graphscene.h"

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
    void drawLabel(const Place &place, GraphScene::Side side, int baseline, const QString &text);

    const GraphCanvas &c;
};
