#include "graph/plot/graphcanvas.h"

#include "graph/plot/graphtools.h"
#include "series/seriesstore.h"

namespace {

QwtScaleMap shownTimes(const GraphPicture &picture, const GraphLayout &layout)
{
    const PlotSeries &times = picture.store->series(SeriesStore::Time);
    if (picture.zoom.isActive())
        return layout.timeMap(picture.zoom.times().low, picture.zoom.times().high);
    return times.isEmpty() ? layout.timeMap(0, 1) : layout.timeMap(times[0], times.last());
}

} // namespace

GraphCanvas::GraphCanvas(QPainter *usedPainter, const GraphPicture &shownPicture, GraphTools &usedTools)
    : painter(usedPainter)
    , picture(shownPicture)
    , tools(usedTools)
    , fonts(usedTools.fonts)
    , scale(GraphLayout::fittingScale(shownPicture.size, shownPicture.scale))
    , layout(shownPicture.size / scale, shownPicture.store->size())
    , colours(shownPicture.switches.blackBackground)
    , timeMap(shownTimes(shownPicture, layout))
{
}
