#pragma once

class QLine;
class QPainter;
class QRect;

/// Strokes of one pixel along rows and columns, pixel by pixel those of the painter, which sets each pixel by
/// itself: a line across a window takes it longer than to fill a tenth of the window.

/// Whether `painter` works on pixels that lie where its coordinates say, without smoothing.
bool isOfWholePixels(const QPainter &painter);
/// `line`, along a row or a column, with the painter's pen, which is one pixel wide.
void drawStraight(QPainter &painter, const QLine &line);
/// What QPainter::drawRect() paints with the same pen and the painter's brush.
void drawBox(QPainter &painter, const QRect &rect);
