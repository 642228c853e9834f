#include "support/graphlog.h"

#include <QHash>
#include <QPainter>
#include <QRegularExpression>

GraphLog::Engine::Engine()
    : QPaintEngine(AllFeatures)
{
}

void GraphLog::Engine::updateState(const QPaintEngineState &now)
{
    pen = now.pen();
    brush = now.brush();
    transform = now.transform();
}

QString GraphLog::Engine::at(const QPointF &point) const
{
    const QPointF place = transform.map(point);
    return QStringLiteral(" %1,%2").arg(qRound(place.x() * 8) / 8.0).arg(qRound(place.y() * 8) / 8.0);
}

QString GraphLog::Engine::penText() const
{
    if (pen.style() == Qt::NoPen)
        return QStringLiteral(" -");
    return QStringLiteral(" %1/%2/%3")
        .arg(pen.color().name())
        .arg(pen.style())
        .arg(pen.widthF() * transform.m11());
}

void GraphLog::Engine::drawLines(const QLineF *strokes, int count)
{
    for (const QLineF *line = strokes; line != strokes + count; ++line)
        note(QStringLiteral("line") + at(line->p1()) + at(line->p2()) + penText());
}

void GraphLog::Engine::drawRects(const QRectF *rects, int count)
{
    for (const QRectF *rect = rects; rect != rects + count; ++rect)
        note(QStringLiteral("rect") + at(rect->topLeft()) + at(rect->bottomRight()) + penText()
            + QLatin1Char(' ') + brush.color().name(QColor::HexArgb));
}

void GraphLog::Engine::drawPolygon(const QPointF *points, int count, PolygonDrawMode)
{
    note(QStringLiteral("curve") + at(points[0]) + at(points[count - 1]) + penText()
        + QStringLiteral(" of %1").arg(count));
}

void GraphLog::Engine::drawTextItem(const QPointF &position, const QTextItem &item)
{
    note(QStringLiteral("text") + at(position)
        + QStringLiteral(" %1 %2px%3 ")
              .arg(pen.color().name())
              .arg(item.font().pixelSize() * transform.m11())
              .arg(item.font().bold() ? QStringLiteral(" bold") : QString())
        + item.text());
}

QStringList GraphLog::of(const QString &script, double scale)
{
    GraphLog log;
    QPainter painter(&log);
    painter.scale(scale, scale);
    const auto commands = script.split(QRegularExpression(QStringLiteral("\n|; ")), Qt::SkipEmptyParts);
    for (const QString &command : commands) {
        const QStringList texts = command.split(QLatin1Char('|'));
        const QStringList words = texts[0].split(QLatin1Char(' '));
        const QByteArray what = words[0].toLatin1();
        const auto number = [&](int i) { return words.value(i).toInt(); };
        const QRect rect(number(1), number(2), number(3), number(4));
        if (what == "pen") {
            const QHash<QString, Qt::PenStyle> styles{{"dot", Qt::DotLine}, {"dash", Qt::DashLine}};
            painter.setPen(QPen(QColor(words[1]), 1, styles.value(words.value(2), Qt::SolidLine)));
        } else if (what == "font") {
            QFont font(QStringLiteral("Arial"));
            font.setPixelSize(number(1));
            font.setBold(words.size() > 2);
            painter.setFont(font);
        } else if (what == "x" || what == "y") {
            const int from = number(words.size() - 2);
            const int to = number(words.size() - 1);
            for (int i = 1, at = number(1); words[i] != QLatin1String(":"); at = number(++i))
                painter.drawLine(what == "x" ? QLine(at, from, at, to) : QLine(from, at, to, at));
        } else if (what == "column" || what == "row") {
            for (int i = 1; i < texts.size(); ++i)
                painter.drawText(
                    what == "row" ? QPoint(number(i + 1), number(1)) : QPoint(number(1), number(i + 1)),
                    texts[i]);
        } else if (what == "fill") {
            painter.fillRect(rect, QColor(words[5]));
        } else if (what == "box") {
            painter.setBrush(QColor(words[5]));
            painter.drawRect(rect);
        } else if (what == "curve") { // in the device's own pixels
            painter.save();
            painter.resetTransform();
            painter.setPen(QPen(painter.pen().color(), number(6)));
            QPolygonF points(number(5));
            points.first() = QPointF(number(1), number(2));
            points.last() = QPointF(number(3), number(4));
            painter.drawPolyline(points);
            painter.restore();
        } else {
            const QHash<QByteArray, int> alignments{{"left", Qt::AlignLeft}, {"right", Qt::AlignRight}};
            painter.drawText(rect, alignments.value(what, Qt::AlignHCenter) | Qt::AlignVCenter,
                command.section(QLatin1Char(' '), 5));
        }
    }
    painter.end();
    return log.lines();
}
