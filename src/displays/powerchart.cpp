#include "displays/powerchart.h"

#include "displays/chartpaint.h"
#include "widgets/displayscale.h"
#include "widgets/straightstrokes.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

constexpr int sideSpace = 79; // left and right of the bars together
constexpr int barsLeft = 39;
constexpr int baseLineInset = 30;
constexpr int axisLabelWidth = 27;
// Shares of the height.
constexpr double scaleTop = 0.1;
constexpr double scaleBottom = 0.6;
constexpr double levelBase = 0.9;
constexpr double levelHeight = 0.15; // of 100 %
constexpr int divisions = 4;

constexpr const char *units[] = {"[mV]", "[mAh]", "[Ri %]"}; // by quantity

} // namespace

int PowerChart::valueY(int value, int height) const
{
    const double share
        = (double(qBound(bars.lower, value, bars.upper)) - bars.lower) / (double(bars.upper) - bars.lower);
    return qRound((scaleBottom - share * (scaleBottom - scaleTop)) * height);
}

int PowerChart::barWidth(int width) const
{
    const int usable = width - px(sideSpace);
    return qMax(1, qRound((usable - qRound(0.2 * usable)) / double(bars.count)));
}

int PowerChart::barLeft(int cell, int width) const
{
    return px(barsLeft) + qRound(cell * (width - px(sideSpace)) / double(bars.count));
}

QRect PowerChart::valueRect(int cell, const QSize &size) const
{
    const int zero = valueY(0, size.height());
    const int end = valueY(bars.values[cell], size.height());
    if (!bars.known[cell] || end == zero)
        return {};
    // The zero line itself belongs to no bar.
    return {
        barLeft(cell, size.width()), end < zero ? end : zero + 1, barWidth(size.width()), qAbs(end - zero)};
}

QRect PowerChart::levelRect(int cell, const QSize &size) const
{
    const int base = qRound(levelBase * size.height());
    const int height = qRound(bars.levels[cell] * levelHeight * size.height() / 100.0);
    return {barLeft(cell, size.width()), base - height, barWidth(size.width()), height};
}

void PowerChart::paint(QPainter &painter, const QSize &size) const
{
    painter.setPen(ChartPaint::textColour(blackGround));
    if (!bars.hasData()) {
        ChartPaint::drawFitted(painter, QRect(QPoint(0, 0), size), Qt::AlignCenter,
            QCoreApplication::translate("PowerDisplay", "NO DATA"), 40, scale);
        return;
    }
    if (stale)
        painter.setOpacity(ChartPaint::staleOpacity);
    paintAxes(painter, size);
    for (int i = 0; i < bars.count; ++i)
        paintCell(painter, i, size);
    painter.setOpacity(1.0);
    if (windowNumber != -1)
        ChartPaint::drawBadge(painter, 0, 0, windowNumber, scale);
}

void PowerChart::paintAxes(QPainter &painter, const QSize &size) const
{
    const int height = size.height();
    const int unitHeight = px(16);
    const int levelTop = qRound((levelBase - levelHeight) * height);
    paintScaleText(painter, {px(24), qRound(scaleTop * height) - px(10) - unitHeight, px(60), unitHeight},
        Qt::AlignLeft, QLatin1String(units[int(bars.quantity)]), 8);
    paintScaleText(painter, {0, levelTop - px(8) - unitHeight, px(axisLabelWidth), unitHeight},
        Qt::AlignRight, QStringLiteral("[%]"), 8);

    for (int k = 0; k <= divisions; ++k) {
        const qint64 range = qint64(bars.upper) - bars.lower;
        const int value = int(bars.lower + range * k / divisions);
        paintMark(painter, size, valueY(value, height), value, 8);
    }
    // Four marks in so little height take a smaller print.
    const int level = 100 / divisions;
    for (int k = 1; k <= divisions; ++k)
        paintMark(painter, size, qRound((levelBase - levelHeight * k / divisions) * height), k * level, 7);

    painter.setPen(ChartPaint::grey);
    for (const int y : {valueY(0, height), qRound(levelBase * height)})
        drawStraight(painter, {px(baseLineInset), y, size.width() - px(baseLineInset) + 1, y});
}

void PowerChart::paintMark(QPainter &painter, const QSize &size, int y, int value, int points) const
{
    const QColor faint = blackGround ? QColor(50, 50, 50) : QColor(220, 220, 220);
    painter.setPen(faint);
    drawStraight(painter, {px(baseLineInset), y, size.width() - px(baseLineInset) + 1, y});
    painter.setPen(ChartPaint::textColour(blackGround));
    paintScaleText(
        painter, {0, y - px(8), px(axisLabelWidth), px(16)}, Qt::AlignRight, QString::number(value), points);
}

// The scales are in Times, so that they are told from the figures of the cells, which are in Arial.
void PowerChart::paintScaleText(
    QPainter &painter, const QRect &box, int alignment, const QString &text, int points) const
{
    ChartPaint::drawFitted(
        painter, box, alignment | Qt::AlignVCenter, text, points, scale, false, QStringLiteral("Times"));
}

void PowerChart::paintCell(QPainter &painter, int cell, const QSize &size) const
{
    const QRect bar = valueRect(cell, size);
    const int value = bars.values[cell];
    painter.fillRect(bar, distinct && !blackGround ? QColor(0, 127, 0) : QColor(0, 255, 0));
    if (!bar.isEmpty() && (value > bars.upper || value < bars.lower))
        paintOffScaleEnd(painter, bar, value > bars.upper);

    const QColor levelColour = blackGround ? QColor(0, 255, 255) : QColor(0, 150, 200);
    painter.fillRect(levelRect(cell, size), levelColour);

    painter.setPen(ChartPaint::textColour(blackGround));
    const int left = barLeft(cell, size.width());
    const int width = barWidth(size.width());
    const int base = qRound(levelBase * size.height());
    ChartPaint::drawFitted(painter, {left - px(2), base + 1, width + px(4), size.height() - base - 1},
        Qt::AlignCenter, QString::number(cell + 1), 9, scale);
    if (!bars.known[cell])
        ChartPaint::drawFitted(painter, {left, valueY(0, size.height()) - px(20), width, px(18)},
            Qt::AlignHCenter | Qt::AlignBottom, QStringLiteral("-"), 12, scale, true);
}

void PowerChart::paintOffScaleEnd(QPainter &painter, const QRect &bar, bool up) const
{
    // From the end inwards: red, two pixels wide; one of green; black, one pixel.
    const int red = px(2);
    const int black = px(1);
    const int inset = px(2);
    const int redTop = up ? bar.top() : bar.bottom() + 1 - red;
    const int blackTop = up ? redTop + red + inset - black : redTop - inset;
    painter.fillRect(bar.left(), redTop, bar.width(), red, Qt::red);
    painter.fillRect(bar.left(), blackTop, bar.width(), black, Qt::black);
}
