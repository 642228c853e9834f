#include "graph/plot/graphcanvas.h"

#include "graph/plot/graphtools.h"
#include "series/seriesstore.h"

namespace {

QwtScaleMap shownTimes(const GraphRequest &request, const GraphLayout &layout)
{
    const PlotSeries &times = request.store->series(SeriesStore::Time);
    if (times.isEmpty())
        return {};
    if (request.zoom.isActive())
        return layout.timeMap(request.zoom.times().low, request.zoom.times().high);
    return layout.timeMap(times[0], times.last());
}

} // namespace

GraphCanvas::GraphCanvas(QPainter *usedPainter, const GraphRequest &shownRequest, GraphTools &usedTools)
    : painter(usedPainter)
    , request(shownRequest)
    , tools(usedTools)
    , fonts(usedTools.fonts)
    , scale(GraphLayout::fittingScale(shownRequest.size, shownRequest.scale))
    , layout(shownRequest.size / scale, shownRequest.store->size())
    , colours(shownRequest.switches.blackBackground, shownRequest.switches.distinctLines)
    , timeMap(shownTimes(shownRequest, layout))
{
}
