#pragma once

#include "displays/powerbars.h"

#include <QRect>

class QPainter;

/// The bar display as a picture: above, a bar a cell in the chosen
/// quantity; below, the cells' balancing levels.
class PowerChart {
public:
    PowerBars bars;
    int windowNumber = -1; ///< of the graph window, -1 for none
    bool blackGround = true; ///< what is behind the picture: decides the colours of texts and lines
    bool distinct = false; ///< the bars have a contrast of 3 to 1
    bool stale = false; ///< no line has come for a while: everything is dimmed
    qreal scale = 1.0; ///< enlarges all fixed sizes

    /// y coordinate of `value` on the upper panel's scale in a picture `height`
    /// high; values beyond it end there.
    int valueY(int value, int height) const;
    /// Upper bar of `cell` in a picture of `size`; empty for a value of 0 or none.
    QRect valueRect(int cell, const QSize &size) const;
    /// Lower bar of `cell` in a picture of `size`.
    QRect levelRect(int cell, const QSize &size) const;

    /// Draws into (0, 0, `size`), without the ground.
    void paint(QPainter &painter, const QSize &size) const;

private:
    int px(int pixels) const { return qRound(pixels * scale); }
    int barLeft(int cell, int width) const;
    int barWidth(int width) const;
    void paintAxes(QPainter &painter, const QSize &size) const;
    void paintMark(QPainter &painter, const QSize &size, int y, int value, int points) const;
    void paintScaleText(
        QPainter &painter, const QRect &box, int alignment, const QString &text, int points) const;
    void paintCell(QPainter &painter, int cell, const QSize &size) const;
    void paintOffScaleEnd(QPainter &painter, const QRect &bar, bool up) const;
};
