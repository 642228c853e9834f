#include "logbook/window/course/coursechart.h"

#include "data/figuretext.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/rounddivision.h"
#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"

#include <QDateTime>
#include <QFontMetrics>
#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double day = 86400.0; // s
constexpr double markerRadius = 4.0; // px
constexpr double reach = 12.0; // px within which a point is hit
constexpr int textHeight = 16; // px
constexpr int leftSpace = 54;
constexpr int rightSpace = 48;
constexpr int noAxisSpace = 14;
constexpr int tickPixels = 26; // between values at least
constexpr int letterPoints = 9;
constexpr double allPercent = 100.0;

QDate dateOf(double at)
{
    return QDateTime::fromMSecsSinceEpoch(qint64(at * 1000.0)).date();
}

double startOf(const QDate &date)
{
    return double(date.startOfDay().toSecsSinceEpoch());
}

QPolygonF polygonOf(CourseLine::Marker marker, const QPointF &at, double radius)
{
    switch (marker) {
    case CourseLine::Square:
        return QRectF(at.x() - radius, at.y() - radius, 2 * radius, 2 * radius);
    case CourseLine::Triangle:
        return QPolygonF({at + QPointF(0, -1.2 * radius), at + QPointF(1.1 * radius, radius),
            at + QPointF(-1.1 * radius, radius)});
    default:
        return QPolygonF({at + QPointF(0, -1.3 * radius), at + QPointF(1.3 * radius, 0),
            at + QPointF(0, 1.3 * radius), at + QPointF(-1.3 * radius, 0)});
    }
}

} // namespace

QVector<double> dateTicks(const Interval &range, int most)
{
    struct Step {
        int days;
        int months;
    };
    static constexpr Step steps[] = {{1, 0}, {2, 0}, {7, 0}, {14, 0}, {0, 1}, {0, 2}, {0, 3}, {0, 6}, {0, 12},
        {0, 24}, {0, 60}, {0, 120}, {0, 1200}};
    QVector<double> ticks;
    if (!(range.length() > 0))
        return ticks;
    const Step *step = std::find_if(std::begin(steps), std::end(steps) - 1, [&](const Step &one) {
        return range.length() / day / (one.days + one.months * 30.0) <= qMax(1, most);
    });
    QDate date = dateOf(range.low);
    if (step->months > 0)
        date = QDate(date.year(), 1, 1);
    else if (step->days >= 7)
        date = date.addDays(1 - date.dayOfWeek());
    for (; date.isValid() && startOf(date) <= range.high;
         date = date.addDays(step->days).addMonths(step->months))
        if (startOf(date) >= range.low)
            ticks.append(startOf(date));
    return ticks;
}

bool CourseChart::isEmpty() const
{
    return std::all_of(
        lines.begin(), lines.end(), [](const CourseLine &line) { return line.points.isEmpty(); });
}

// With some air, and from zero where that leaves the course large enough to be seen.
Interval CourseChart::valueRange() const
{
    const double air = hasReference() ? 0.15 : 0.08; // more for what is written on the line across
    constexpr double narrowest = 0.05; // of the largest value: noise stays small
    constexpr double fromZero = 0.4;
    Interval range{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
    for (const CourseLine &line : lines)
        for (const CoursePoint &point : line.points)
            range.take({point.value, point.value});
    if (range.low > range.high)
        return {0.0, 1.0};
    if (hasReference())
        range.take({reference, reference});
    const double least = qMax(narrowest * std::abs(range.high), 1e-3);
    if (range.length() < least)
        range = {range.low - least / 2, range.low + least / 2};
    if (range.low >= 0 && range.low < fromZero * range.high)
        return {0.0, range.high * (1 + air)};
    const double space = range.length() * air;
    return {range.low - space, range.high + space};
}

Interval CourseChart::timeRange() const
{
    Interval range{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
    for (const CourseLine &line : lines)
        for (const CoursePoint &point : line.points)
            range.take({point.at, point.at});
    if (range.low > range.high)
        return {0.0, 1.0};
    const double space = qMax(range.length() * 0.03, byDate ? day / 2 : 0.5);
    return {range.low - space, range.high + space};
}

CourseChart::Mapping CourseChart::mapping(const QSize &size) const
{
    const int left = px(leftSpace);
    const int right = px(inPercent ? rightSpace : noAxisSpace);
    const int top = px(2 * textHeight);
    const int bottom = px(textHeight + 6);
    const QRect area(left, top, qMax(1, size.width() - left - right), qMax(1, size.height() - top - bottom));
    return {area, valueRange(), timeRange()};
}

CourseChart::Hit CourseChart::hit(const QPointF &place, const QSize &size) const
{
    Hit best;
    double nearest = reach * scale;
    const Mapping map = mapping(size);
    for (int i = 0; i < lines.size(); ++i) {
        for (int k = 0; k < lines[i].points.size(); ++k) {
            const QPointF apart = map.place(lines[i].points[k]) - place;
            const double distance = std::hypot(apart.x(), apart.y());
            if (distance < nearest) {
                nearest = distance;
                best = {i, k};
            }
        }
    }
    return best;
}

QString CourseChart::timeText(double at) const
{
    return byDate ? QLocale().toString(dateOf(at), QLocale::ShortFormat) : FigureText::fixed(at, 0);
}

void CourseChart::paint(QPainter &painter, const QSize &size) const
{
    const GraphColours colours(blackGround);
    painter.fillRect(QRect(QPoint(0, 0), size), colours.background());
    const Mapping map = mapping(size);
    painter.setFont(drawingFont(QStringLiteral("Arial"), letterPoints, scale));
    if (isEmpty()) {
        painter.setPen(colours.text());
        painter.drawText(map.area, int(Qt::AlignCenter) | int(Qt::TextWordWrap), emptyText);
        return;
    }
    paintValues(painter, map);
    if (inPercent)
        paintPercent(painter, map);
    paintTimes(painter, map);
    if (hasReference())
        paintReference(painter, map);
    painter.setPen(colours.axis());
    painter.drawRect(map.area);
    painter.setRenderHint(QPainter::Antialiasing); // of what follows
    for (const CourseLine &line : lines)
        paintLine(painter, line, map);
    paintLegend(painter, map);
}

void CourseChart::paintValues(QPainter &painter, const Mapping &map) const
{
    const QRect &area = map.area;
    const GraphColours colours(blackGround);
    const Interval &range = map.values;
    const RoundDivision ticks(range, area.height() / px(tickPixels));
    for (const double tick : ticks.places) {
        const int y = qRound(map.y(tick));
        painter.setPen(colours.grid());
        painter.drawLine(area.left(), y, area.right(), y);
        painter.setPen(colours.text());
        painter.drawText(QRect(0, y - px(textHeight) / 2, area.left() - px(6), px(textHeight)),
            int(Qt::AlignRight) | int(Qt::AlignVCenter), ticks.text(tick));
    }
    painter.drawText(QRect(0, area.top() - px(textHeight) - px(4), area.left() - px(6), px(textHeight)),
        int(Qt::AlignRight) | int(Qt::AlignVCenter), unit);
}

void CourseChart::paintPercent(QPainter &painter, const Mapping &map) const
{
    const QRect &area = map.area;
    const GraphColours colours(blackGround);
    const Interval &range = map.values;
    const Interval percent{range.low * allPercent / reference, range.high * allPercent / reference};
    const RoundDivision ticks(percent, area.height() / px(tickPixels));
    for (const double tick : ticks.places) {
        const int y = qRound(map.y(tick * reference / allPercent));
        painter.setPen(colours.axis());
        painter.drawLine(area.right(), y, area.right() + px(3), y);
        painter.setPen(colours.text());
        painter.drawText(QRect(area.right() + px(6), y - px(textHeight) / 2, px(rightSpace), px(textHeight)),
            int(Qt::AlignLeft) | int(Qt::AlignVCenter), ticks.text(tick) + QStringLiteral(" %"));
    }
}

void CourseChart::paintTimes(QPainter &painter, const Mapping &map) const
{
    const QRect &area = map.area;
    const GraphColours colours(blackGround);
    const Interval &range = map.times;
    const int width = painter.fontMetrics().horizontalAdvance(timeText(range.high)) + px(14);
    const int most = qMax(1, area.width() / width);
    const QVector<double> ticks = byDate ? dateTicks(range, most) : RoundDivision(range, most).places;
    for (const double tick : ticks) {
        if (!byDate && tick != std::floor(tick))
            continue;
        const int x = qRound(map.x(tick));
        painter.setPen(colours.grid());
        painter.drawLine(x, area.top(), x, area.bottom());
        painter.setPen(colours.text());
        painter.drawText(QRect(x - width / 2, area.bottom() + px(3), width, px(textHeight)), Qt::AlignCenter,
            timeText(tick));
    }
}

void CourseChart::paintReference(QPainter &painter, const Mapping &map) const
{
    const QRect &area = map.area;
    const GraphColours colours(blackGround);
    const int y = qRound(map.y(reference));
    painter.setPen(QPen(colours.note(), qMax(1, px(1)), Qt::DashLine));
    painter.drawLine(area.left(), y, area.right(), y);
    const int width = painter.fontMetrics().horizontalAdvance(referenceName);
    const QSize size(qMin(width, area.width() - px(12)), px(textHeight));
    const QRect right(QPoint(area.right() - px(6) - size.width() + 1, y - size.height() - 1), size);
    const QRect left(QPoint(area.left() + px(6), right.top()), size);
    const bool isLeft = isCovered(right, map) && !isCovered(left, map);
    painter.drawText(isLeft ? left : right,
        int(isLeft ? Qt::AlignLeft : Qt::AlignRight) | int(Qt::AlignBottom), referenceName);
}

// Whether points would be drawn over what is written in `box`.
bool CourseChart::isCovered(const QRect &box, const Mapping &map) const
{
    const double radius = markerRadius * scale;
    const QRectF around = QRectF(box).adjusted(-radius, -radius, radius, radius);
    return std::any_of(lines.begin(), lines.end(), [&](const CourseLine &line) {
        return std::any_of(line.points.begin(), line.points.end(),
            [&](const CoursePoint &point) { return around.contains(map.place(point)); });
    });
}

void CourseChart::paintLine(QPainter &painter, const CourseLine &line, const Mapping &map) const
{
    QPolygonF joined;
    for (const CoursePoint &point : line.points)
        if (!point.partial)
            joined.append(map.place(point));
    painter.setPen(QPen(line.colour, 1.5 * scale, line.style));
    painter.setBrush(Qt::NoBrush);
    for (int i = 1; i < joined.size(); ++i) // a polyline of this width takes quadratic time
        painter.drawLine(joined[i - 1], joined[i]);
    for (const CoursePoint &point : line.points)
        paintMarker(painter, line, point, map.place(point));
}

void CourseChart::paintMarker(
    QPainter &painter, const CourseLine &line, const CoursePoint &point, const QPointF &at) const
{
    const GraphColours colours(blackGround);
    const double radius = markerRadius * scale;
    painter.setPen(QPen(line.colour, 1.5 * scale));
    painter.setBrush(point.partial ? colours.background() : line.colour);
    if (line.marker == CourseLine::Disc)
        painter.drawEllipse(at, radius, radius);
    else
        painter.drawPolygon(polygonOf(line.marker, at, radius));
    if (marked == 0 || point.recording != marked)
        return;
    painter.setPen(QPen(colours.text(), 2 * scale));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, 2 * radius, 2 * radius);
}

// In one row above the plot, each entry as wide as its name while there is room for all.
void CourseChart::paintLegend(QPainter &painter, const Mapping &map) const
{
    const GraphColours colours(blackGround);
    const QRect &area = map.area;
    const int count = lines.size();
    const int markerSpace = px(18);
    int wanted = 0;
    for (const CourseLine &line : lines)
        wanted += painter.fontMetrics().horizontalAdvance(line.name) + markerSpace + px(12);
    const double share = qMin(1.0, double(area.width()) / wanted);
    double left = area.left();
    for (int i = 0; i < count; ++i) {
        const QString &name = lines[i].name;
        const double width = (painter.fontMetrics().horizontalAdvance(name) + markerSpace + px(12)) * share;
        const int middle = px(textHeight) / 2 + px(4);
        paintMarker(painter, lines[i], CoursePoint(), QPointF(left + px(6), middle));
        painter.setPen(colours.text());
        const int room = qMax(0, int(width) - markerSpace);
        painter.drawText(
            QRectF(left + markerSpace - px(2), middle - px(textHeight) / 2.0, room, px(textHeight)),
            int(Qt::AlignLeft) | int(Qt::AlignVCenter),
            painter.fontMetrics().elidedText(name, Qt::ElideRight, room));
        left += width;
    }
}
