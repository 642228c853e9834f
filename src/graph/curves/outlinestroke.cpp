#include "graph/curves/outlinestroke.h"

#include "graph/curves/linedashes.h"

#include <QPainter>

#include <qwt_painter.h>

#include <cmath>

namespace {

constexpr double reach = 2; // px, of a lone point

// Of those that fall together one: most of a quiet curve.
QPolygonF onWholePixels(const QPolygonF &points)
{
    QPolygonF places;
    places.reserve(points.size());
    for (const QPointF &point : points) {
        const QPointF place(std::round(point.x()), std::round(point.y()));
        if (places.isEmpty() || places.last() != place)
            places.append(place);
    }
    return places;
}

} // namespace

void strokeOutline(
    QPainter *painter, const QPolygonF &points, const QRect &area, const QPen &pen, double dashUnit)
{
    painter->save();
    painter->setClipRect(area, Qt::IntersectClip);
    painter->setPen(QPen(pen.color(), pen.width()));
    const bool rounds = QwtPainter::roundingAlignment(painter);
    const LineDashes dashes(pen.style(), area.left(), dashUnit);
    const QPolygonF places = rounds ? onWholePixels(points) : points;
    if (places.size() == 1) {
        const QPointF corner(reach, reach);
        painter->fillRect(QRectF(places.first() - corner, places.first() + corner), pen.color());
    } else if (rounds || dashes.isSolid()) {
        if (!dashes.isSolid())
            painter->setClipRegion(dashes.inked(area, {}, places), Qt::IntersectClip);
        QwtPainter::drawPolyline(painter, places);
    } else {
        painter->setPen(QPen(pen.color(), pen.width(), Qt::SolidLine, Qt::FlatCap)); // ends as they are cut
        const QVector<QPolygonF> pieces = dashes.pieces(area, places);
        for (const QPolygonF &piece : pieces)
            QwtPainter::drawPolyline(painter, piece);
    }
    painter->restore();
}
