#include "graph/graphcanvas.h"

#include "graph/seriesstore.h"

#include <QFontMetrics>

namespace {

constexpr double pixelsPerPoint = 96.0 / 72.0;
constexpr int smallestFont = 8; // px

QwtScaleMap shownTimes(const GraphPicture &picture, const GraphLayout &layout)
{
    const PlotSeries &times = picture.store->series(SeriesStore::Time);
    if (picture.zoom.isActive())
        return layout.timeMap(picture.zoom.times().low, picture.zoom.times().high);
    return times.isEmpty() ? layout.timeMap(0, 1) : layout.timeMap(times[0], times.last());
}

} // namespace

GraphCanvas::GraphCanvas(QPainter *usedPainter, const GraphPicture &shownPicture)
    : painter(usedPainter)
    , picture(shownPicture)
    , layout(shownPicture.size, shownPicture.store->size())
    , colours(shownPicture.switches.blackBackground)
    , timeMap(shownTimes(shownPicture, layout))
{
}

QFont GraphCanvas::font(double points)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(qRound(points * pixelsPerPoint));
    return font;
}

QFont GraphCanvas::fittedFont(double points, const QString &text, int width)
{
    QFont fitted = font(points);
    while (fitted.pixelSize() > smallestFont && QFontMetrics(fitted).horizontalAdvance(text) > width)
        fitted.setPixelSize(fitted.pixelSize() - 1);
    return fitted;
}
