#pragma once

#include "series/cellselection.h"
#include "graph/scene/graphzoom.h"
#include "settings/viewswitches.h"

#include <QRect>
#include <QString>

class SeriesStore;

/// Everything that a picture of a graph depends on, for screen, printer and file alike.
struct GraphRequest {
    QSize size; ///< px at 96 dpi; scale the painter for other densities
    double scale = 1.0; ///< everything but curves is so many times larger, where there is room
    const SeriesStore *store = nullptr; ///< outlives the painting
    ViewSwitches switches;
    CellSelection selectedCells = {};
    int windowNumber = 0;
    GraphZoom zoom;
    int rangedRecords = 0; ///< records, from the first on, whose values the axes cover; 0 for all
    QString note; ///< shown before the newest values, such as since when no line came
    int cursorRecord = -1; ///< of the store, where the cursor line stands; -1 for none
    int markedRecord = -1; ///< of the store, where the second cursor stands; -1 for none
    QRect rubberBand; ///< what is being picked, before scaling; empty for nothing
};
