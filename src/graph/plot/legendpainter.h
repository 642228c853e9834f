#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

/// Draws the names and newest values of the curves in the column at the right edge.
class LegendPainter {
public:
    explicit LegendPainter(const GraphCanvas &canvas);

    void paint(const GraphScene &scene);

private:
    bool fits(const GraphScene::Entry &entry, const QRect &row, int font);
    void paintCells(const GraphScene &scene);
    void paintHeading(const GraphScene &scene, const QRect &first, const QRect &second);
    void paintRow(const GraphScene::Entry &entry, const QRect &row, QFont font);
    void paintNumber(const GraphScene::Entry &entry, const QRect &row, const QColor &background);
    void paintEntries(const QVector<GraphScene::Entry> &entries, const QRect &column);
    void paintText(const QString &text, const QRect &line, int alignment);

    const GraphCanvas &c;
    QPainter *p;
};
