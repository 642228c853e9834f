#include "widgets/straightstrokes.h"

#include <QPaintEngine>
#include <QPainter>

namespace {

bool isThin(const QPainter &painter)
{
    return isOfWholePixels(painter) && painter.pen().style() == Qt::SolidLine && painter.pen().width() <= 1;
}

// Corners, and what lies below the frame, are painted once only.
bool isOpaque(const QPainter &painter)
{
    return painter.opacity() >= 1 && painter.pen().color().alpha() == 255
        && (painter.brush().style() == Qt::NoBrush || painter.brush().isOpaque());
}

} // namespace

bool isOfWholePixels(const QPainter &painter)
{
    const QTransform &map = painter.deviceTransform();
    return painter.paintEngine()->type() == QPaintEngine::Raster && map.type() <= QTransform::TxTranslate
        && QPointF(map.dx(), map.dy()) == QPoint(qRound(map.dx()), qRound(map.dy()))
        && !painter.testRenderHint(QPainter::Antialiasing);
}

void drawStraight(QPainter &painter, const QLine &line)
{
    const bool straight = line.dx() >= 0 && line.dy() >= 0 && (line.dx() == 0 || line.dy() == 0);
    if (straight && isThin(painter))
        painter.fillRect(QRect(line.p1(), line.p2()), painter.pen().color());
    else
        painter.drawLine(line);
}

void drawBox(QPainter &painter, const QRect &rect)
{
    if (rect.isEmpty() || !isThin(painter) || !isOpaque(painter)) {
        painter.drawRect(rect);
        return;
    }
    if (painter.brush().style() != Qt::NoBrush)
        painter.fillRect(rect, painter.brush());
    const QRect frame = rect.adjusted(0, 0, 1, 1);
    for (const QLine &side :
        {QLine(frame.topLeft(), frame.topRight()), QLine(frame.bottomLeft(), frame.bottomRight()),
            QLine(frame.topLeft(), frame.bottomLeft()), QLine(frame.topRight(), frame.bottomRight())})
        drawStraight(painter, side);
}
