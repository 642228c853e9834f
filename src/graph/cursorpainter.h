#pragma once

#include "graph/graphcanvas.h"
#include "graph/graphscene.h"

/// Draws what the user points at: the cursor line with the values of its record, and the rectangle being picked.
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

    QVector<Line> valuesAt(const GraphScene &scene, int record) const;
    void paintValues(const QVector<Line> &lines, int x);

    const GraphCanvas &c;
    QPainter *p;
};
