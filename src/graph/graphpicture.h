#pragma once

#include "graph/cellselection.h"
#include "graph/graphzoom.h"
#include "settings/viewswitches.h"

#include <QSize>
#include <QString>

class SeriesStore;

/// Everything that a picture of a graph depends on, for screen, printer and file alike.
struct GraphPicture {
    QSize size; ///< px at 96 dpi; scale the painter for other densities
    const SeriesStore *store = nullptr; ///< outlives the painting
    ViewSwitches switches;
    CellSelection selectedCells = {};
    int windowNumber = 0;
    GraphZoom zoom;
    QString note; ///< shown before the newest values, such as since when no line came
};
