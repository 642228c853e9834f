#pragma once

#include "graph/curves/curvepainter.h"

#include <memory>

struct GraphCanvas;
struct GraphRequest;
struct GraphScene;
struct GraphTools;

/// Paints graphs, for screen, printer and file alike, with tools that it makes once. Keeps what it found of
/// curves and texts, so that painting the same recording again costs little; keep one painter for each
/// recording that is shown.
class GraphPainter {
public:
    GraphPainter();
    ~GraphPainter();

    /// Paints `request` with its top left corner at the origin. Leaves `painter` as it was.
    void paint(QPainter *painter, const GraphRequest &request);

private:
    void paintPlots(const GraphCanvas &canvas);
    void paintCurves(const GraphCanvas &canvas, const GraphScene &scene);
    static void paintPointer(const GraphCanvas &canvas, const GraphScene &scene);

    CurvePainter m_curves;
    std::unique_ptr<GraphTools> m_tools;
};
