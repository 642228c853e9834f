#include "graph/valueaxispainter.h"

#include "graph/figures.h"
#include "graph/graphfonts.h"

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

// Labels tell neighbouring divisions apart: more decimals in a narrow range.
int decimalsFor(const GraphScene::Axis &axis, double step)
{
    constexpr double lastPlace[] = {1.0, 0.1, 0.01, 0.001, 0.0001};
    int decimals = axis.decimals;
    while (decimals < mostDecimals && std::abs(step) < 0.999 * lastPlace[decimals])
        ++decimals;
    return decimals;
}

} // namespace

ValueAxisPainter::ValueAxisPainter(const GraphCanvas &canvas)
    : c(canvas)
{
}

ValueAxisPainter::Place ValueAxisPainter::placeFor(const GraphLayout &layout, GraphScene::Side side)
{
    if (side == GraphScene::Side::Left)
        return {layout.plotLeft() - leftLabels, leftLabels - besideLine};
    const int left = layout.plotRight() + rightLabels;
    return {left, layout.legend().left() - left};
}

void ValueAxisPainter::paint(const GraphScene::Axis &axis)
{
    const ValueRange range = axis.range.part(c.picture.zoom.share(axis.area));
    const QVector<int> heights = c.layout.valueHeights(axis.area);
    const int steps = heights.size() - 1;
    const Place place = placeFor(c.layout, axis.side);
    const int decimals = decimalsFor(axis, (range.high - range.low) / steps);
    c.painter->setPen(c.colours.readable(axis.colour));
    for (int step = 0; step <= steps; ++step) {
        const double value = range.low + (range.high - range.low) * step / steps;
        QString text = figure(value, axis.fieldWidth, decimals);
        if (c.fonts.fit(8, text, place.width).width > place.width + besideLine)
            text = QLocale().toString(value, 'g', 3); // a figure that no battery gives
        drawLabel(place, axis.side, heights[step] + baselineBelow, text);
    }
    const int below = heights[steps - 1] - heights[steps];
    if (below >= stepForUnit)
        drawLabel(place, axis.side, heights[steps] + below / 2 + baselineBelow, axis.unit);
}

void ValueAxisPainter::drawLabel(const Place &place, GraphScene::Side side, int baseline, const QString &text)
{
    const GraphFonts::Fit fit = c.fonts.fit(8, text, place.width);
    c.painter->setFont(fit.font);
    int left = place.left;
    if (side == GraphScene::Side::Left && fit.width > place.width)
        left = place.left + place.width - fit.width; // rather further out than into the plot
    c.painter->drawText(left, baseline, text);
}
