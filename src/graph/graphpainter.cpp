#include "graph/graphpainter.h"

#include "graph/cursorpainter.h"
#include "graph/framepainter.h"
#include "graph/graphscene.h"
#include "graph/graphtools.h"
#include "graph/legendpainter.h"
#include "graph/valueaxispainter.h"
#include "graph/vectorstate.h"

#include <QPainter>

namespace {

QPen penOf(const GraphTools &tools, const GraphScene::Curve &curve)
{
    if (curve.series < SeriesStore::Cell1)
        return QPen(curve.colour, curve.width);
    return (curve.width > 1 ? tools.selectedCellPens : tools.cellPens)[curve.series - SeriesStore::Cell1];
}

} // namespace

GraphPainter::GraphPainter()
    : m_tools(std::make_unique<GraphTools>())
{
}

GraphPainter::~GraphPainter() = default;

void GraphPainter::paint(QPainter *painter, const GraphPicture &picture)
{
    painter->save();
    const GraphCanvas canvas(painter, picture, *m_tools);
    FramePainter frame(canvas);
    frame.paintBackground();
    frame.paintBadge();
    if (picture.store->isEmpty()) {
        frame.paintNoData(QRect(QPoint(0, 0), picture.size), 40, QColor(191, 191, 191), QString());
    } else if (canvas.layout.isDrawable()) {
        paintPlots(canvas);
    }
    painter->restore();
    clearVectorState(); // for all that runs until the next painting
}

void GraphPainter::paintPlots(const GraphCanvas &canvas)
{
    const GraphScene scene = GraphScene::of(canvas.picture);
    FramePainter frame(canvas);
    frame.paintInformation();
    frame.paintTimeAxis();
    frame.paintGrid(!scene.cellHeading.isEmpty());
    paintCurves(canvas, scene);
    for (const GraphScene::Axis &axis : scene.axes)
        ValueAxisPainter(canvas).paint(axis);
    LegendPainter(canvas).paint(scene);
    if (!scene.upperReason.isEmpty()) {
        frame.paintNoData(canvas.layout.area(PlotArea::Upper), 20,
            canvas.colours.readable(canvas.colours.slope()), scene.upperReason);
    }
    paintPointer(canvas, scene);
}

void GraphPainter::paintPointer(const GraphCanvas &canvas, const GraphScene &scene)
{
    const GraphPicture &picture = canvas.picture;
    if (picture.cursorRecord >= 0 && picture.cursorRecord < picture.store->size())
        CursorPainter(canvas).paintCursor(scene, picture.cursorRecord);
    if (!picture.rubberBand.isEmpty())
        CursorPainter(canvas).paintRubberBand(picture.rubberBand);
}

void GraphPainter::paintCurves(const GraphCanvas &canvas, const GraphScene &scene)
{
    for (auto it = scene.curves.crbegin(); it != scene.curves.crend(); ++it) {
        const GraphScene::Curve &curve = *it;
        const ValueRange range = curve.range.part(canvas.picture.zoom.share(curve.area));
        m_curves.draw(canvas.painter,
            {canvas.picture.store, curve.series, curve.first, canvas.timeMap,
                canvas.layout.valueMap(curve.area, range.low, range.high), canvas.layout.area(curve.area),
                penOf(*m_tools, curve)});
    }
}
