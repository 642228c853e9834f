#include "displays/chartpaint.h"

#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"

#include <QFontMetrics>
#include <QPainter>
#include <QWidget>

namespace ChartPaint {

QColor textColour(bool blackGround)
{
    return blackGround ? Qt::white : Qt::black;
}

int drawBadge(QPainter &painter, int left, int top, int number, qreal scale)
{
    const QString text = QString::number(number);
    const QFont font = drawingFont(QStringLiteral("Arial"), 9, scale);
    const int side = qRound(18 * scale);
    const int padding = qRound(6 * scale);
    const QRect badge(left, top, qMax(side, QFontMetrics(font).horizontalAdvance(text) + padding), side);
    painter.fillRect(badge, Qt::yellow);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(badge, Qt::AlignCenter, text);
    return badge.width();
}

void drawFitted(QPainter &painter, const QRect &box, int flags, const QString &text, int points, qreal scale,
    bool bold, const QString &family)
{
    const QSize room(box.width(), QWIDGETSIZE_MAX);
    painter.setFont(fittedFont(drawingFont(family, points, scale, bold), text, room));
    painter.drawText(box, flags, text);
}

} // namespace ChartPaint
