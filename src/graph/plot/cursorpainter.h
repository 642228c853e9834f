#pragma once

#include "graph/plot/graphcanvas.h"
#include "graph/scene/graphscene.h"

/// Draws what the user points at: the cursor line with the values of its
/// record, and the rectangle being picked.
class CursorPainter {
public:
    explicit CursorPainter(const GraphCanvas &canvas);

    void paintCursor(const GraphScene &scene, int record);
    void paintRubberBand(const QRect &rect);

private:
    struct Line {
        QString name, value;
        QColor colour;
    };

    struct Block {
        int rows; // in a column
        int columnWidth;
        QSize size;
    };

    QVector<Line> valuesAt(const GraphScene &scene, int record) const;
    Block blockOf(const QVector<Line> &lines) const;
    void paintValues(const QVector<Line> &lines, const Block &block, int x);

    const GraphCanvas &c;
    QPainter *p;
};
