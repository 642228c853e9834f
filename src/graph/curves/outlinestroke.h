#pragma once

class QPainter;
class QPen;
class QPolygonF;
class QRect;

/// Draws the curve through `points`, few enough a pixel column, inside `area`, dashed as the curves of graphs
/// are: as `pen` says, with dots of `dashUnit` px. A lone point is a square that is seen.
void strokeOutline(
    QPainter *painter, const QPolygonF &points, const QRect &area, const QPen &pen, double dashUnit);
