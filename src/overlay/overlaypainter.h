#pragma once

#include "graph/plot/graphfonts.h"
#include "overlay/courses/courseoutline.h"
#include "overlay/scene/overlayrequest.h"

#include <QPolygonF>

#include <tuple>
#include <vector>

class QPainter;

/// Paints overlays, for screen, printer and file alike. Keeps the outlines of curves, so that painting the
/// same again costs little; keep one painter for each overlay that is shown.
class OverlayPainter {
public:
    /// Paints `request` with its top left corner at the origin. Leaves `painter` as it was.
    void paint(QPainter *painter, const OverlayRequest &request);

private:
    struct Canvas;
    struct Found {
        /// Of what; where, and between which columns.
        using Key = std::tuple<std::shared_ptr<const OverlayCourse>, OverlayAxis, OverlayValue, CoursePlace,
            int, int>;
        Key key;
        QPolygonF outline;
    };

    void paintHeading(const Canvas &canvas);
    void paintPlaces(const Canvas &canvas);
    void paintValues(const Canvas &canvas);
    void paintCurves(const Canvas &canvas);
    void paintLegend(const Canvas &canvas);
    void paintRow(const Canvas &canvas, int entry);
    static void paintPointer(const Canvas &canvas);
    void paintReason(const Canvas &canvas);
    const QPolygonF &outlineOf(const Canvas &canvas, int entry, const CoursePlace &place, const QRect &area);

    GraphFonts m_fonts;
    std::vector<Found> m_found; // by entry
};
