#include "graph/plot/graphpainter.h"

#include "graph/plot/cursorpainter.h"
#include "graph/plot/framepainter.h"
#include "graph/scene/graphscene.h"
#include "graph/plot/graphtools.h"
#include "graph/plot/legendpainter.h"
#include "graph/plot/valueaxispainter.h"
#include "graph/curves/vectorstate.h"

#include <QPainter>

namespace {

// In the device's own pixels, of which a curve uses each, however large the letters are.
QwtScaleMap finer(QwtScaleMap map, double scale)
{
    map.setPaintInterval(map.p1() * scale, map.p2() * scale);
    return map;
}

QRect finer(const QRect &rect, double scale)
{
    return {rect.topLeft() * scale, rect.bottomRight() * scale};
}

QPen penOf(const GraphTools &tools, const GraphScene::Curve &curve, bool distinct)
{
    if (curve.series < SeriesStore::Cell1 || distinct)
        return QPen(curve.colour, curve.width, curve.style);
    return (curve.width > 1 ? tools.selectedCellPens : tools.cellPens)[curve.series - SeriesStore::Cell1];
}

} // namespace

GraphPainter::GraphPainter()
    : m_tools(std::make_unique<GraphTools>())
{
}

GraphPainter::~GraphPainter() = default;

void GraphPainter::paint(QPainter *painter, const GraphRequest &request)
{
    painter->save();
    const GraphCanvas canvas(painter, request, *m_tools);
    painter->scale(canvas.scale, canvas.scale);
    paintBackground(canvas);
    paintBadge(canvas);
    if (request.store->isEmpty()) {
        paintNoData(canvas, QRect(0, 0, canvas.layout.width(), canvas.layout.height()), 40,
            QColor(191, 191, 191), QString());
    } else if (canvas.layout.isDrawable()) {
        paintPlots(canvas);
    }
    painter->restore();
    clearVectorState(); // for all that runs until the next painting
}

void GraphPainter::paintPlots(const GraphCanvas &canvas)
{
    const GraphScene scene = GraphScene::of(canvas.request);
    paintInformation(canvas, scene);
    paintTimeAxis(canvas);
    paintGrid(canvas, !scene.cellHeading.isEmpty());
    paintCurves(canvas, scene);
    for (const GraphScene::Axis &axis : scene.axes)
        paintValueAxis(canvas, axis);
    paintLegend(canvas, scene);
    if (!scene.upperReason.isEmpty()) {
        paintNoData(canvas, canvas.layout.area(PlotArea::Upper), 20,
            canvas.colours.readable(canvas.colours.slope()), scene.upperReason);
    }
    paintPointer(canvas, scene);
}

void GraphPainter::paintPointer(const GraphCanvas &canvas, const GraphScene &scene)
{
    const GraphRequest &request = canvas.request;
    if (request.markedRecord >= 0)
        paintMark(canvas, request.markedRecord);
    if (request.cursorRecord >= 0)
        paintCursor(canvas, scene, request.cursorRecord);
    if (!request.rubberBand.isEmpty())
        paintRubberBand(canvas, request.rubberBand);
}

void GraphPainter::paintCurves(const GraphCanvas &canvas, const GraphScene &scene)
{
    constexpr double dashUnit = 2; // px
    const double scale = canvas.scale;
    const bool distinct = canvas.request.switches.distinctLines;
    canvas.painter->save();
    canvas.painter->scale(1 / scale, 1 / scale);
    for (auto it = scene.curves.crbegin(); it != scene.curves.crend(); ++it) {
        const GraphScene::Curve &curve = *it;
        const Interval range = curve.range.part(canvas.request.zoom.share(curve.area));
        m_curves.draw(canvas.painter,
            {canvas.request.store, curve.series, curve.first, finer(canvas.timeMap, scale),
                finer(canvas.layout.valueMap(curve.area, range.low, range.high), scale),
                finer(canvas.layout.area(curve.area), scale), penOf(*m_tools, curve, distinct),
                dashUnit * scale});
    }
    canvas.painter->restore();
}
