#include "graph/plot/valueaxispainter.h"

#include "data/figuretext.h"
#include "graph/plot/graphfonts.h"
#include "graph/plot/graphtools.h"

#include <QLocale>
#include <QPainter>

#include <cmath>

namespace {

constexpr int leftLabels = 30; // px left of the plot
constexpr int rightLabels = 7; // px right of it
constexpr int besideLine = 4; // px kept free beside the plot's side line
constexpr int baselineBelow = 4; // px below the grid line
constexpr int stepForUnit = 20; // px; in less the unit would touch the labels above and below
constexpr int mostDecimals = 4;

struct Place {
    int left, width;
};

// Labels tell neighbouring divisions apart: more decimals in a narrow range.
int decimalsFor(const GraphScene::Axis &axis, double step)
{
    constexpr double lastPlace[] = {1.0, 0.1, 0.01, 0.001, 0.0001};
    int decimals = axis.decimals;
    while (decimals < mostDecimals && std::abs(step) < 0.999 * lastPlace[decimals])
        ++decimals;
    return decimals;
}

Place placeFor(const GraphLayout &layout, GraphScene::Side side)
{
    if (side == GraphScene::Side::Left)
        return {layout.plotLeft() - leftLabels, leftLabels - besideLine};
    const int left = layout.plotRight() + rightLabels;
    return {left, layout.legend().left() - left};
}

const QwtScaleDraw &scaleFor(const GraphCanvas &c, const GraphScene::Axis &axis)
{
    const Interval range = axis.range.part(c.request.zoom.share(axis.area));
    const QRect area = c.layout.area(axis.area);
    const int steps = c.layout.valueSteps();
    QList<double> values;
    for (int step = 0; step <= steps; ++step)
        values.append(range.low + (range.high - range.low) * step / steps);
    c.tools.valueDivision.setInterval(range.low, range.high);
    c.tools.valueDivision.setTicks(QwtScaleDiv::MajorTick, values);
    QwtScaleDraw &scale = c.tools.valueScale;
    scale.move(area.topLeft());
    scale.setLength(area.height() - 1);
    scale.setScaleDiv(c.tools.valueDivision);
    return scale;
}

void drawLabel(
    const GraphCanvas &c, const Place &place, GraphScene::Side side, int baseline, const QString &text)
{
    const GraphFonts::Fit fit = c.fonts.fit(8, text, place.width);
    c.painter->setFont(fit.font);
    int left = place.left;
    if (side == GraphScene::Side::Left && fit.width > place.width)
        left = place.left + place.width - fit.width; // rather further out than into the plot
    c.tools.texts.draw(c.painter, QPoint(left, baseline), text);
}

} // namespace

void paintValueAxis(const GraphCanvas &c, const GraphScene::Axis &axis)
{
    const QwtScaleDraw &scale = scaleFor(c, axis);
    const QList<double> values = scale.scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const Place place = placeFor(c.layout, axis.side);
    const int decimals = decimalsFor(axis, values[1] - values[0]);
    c.painter->setPen(c.colours.readable(axis.colour));
    for (const double value : values) {
        QString text = FigureText::fixed(value, axis.fieldWidth, decimals);
        if (c.fonts.fit(8, text, place.width).width > place.width + besideLine)
            text = QLocale().toString(value, 'g', 3); // a figure that no battery gives
        drawLabel(c, place, axis.side, qRound(scale.scaleMap().transform(value)) + baselineBelow, text);
    }
    const QRect area = c.layout.area(axis.area);
    const int below = (area.height() - 1) / (values.size() - 1);
    if (below >= stepForUnit)
        drawLabel(c, place, axis.side, area.top() + below / 2 + baselineBelow, axis.unit);
}
