#pragma once

#include "graph/plot/graphfonts.h"
#include "graph/plot/kepttexts.h"
#include "graph/plot/scaledrawtime.h"
#include "graph/plot/straightlines.h"

#include <QPen>
#include <QVector>

#include <qwt_plot_grid.h>
#include <qwt_scale_div.h>

/// What the frame of a graph is painted with, built once: making it costs more than using it.
struct GraphTools {
    GraphTools();

    GraphFonts fonts;
    KeptTexts texts;
    ScaleDrawTime timeScale;
    QwtScaleDraw valueScale; ///< of one value axis after the other
    QwtScaleDiv timeDivision;
    QwtScaleDiv valueDivision;
    QwtPlotGrid grid;
    LineStrips strips; ///< of the grid
    QPen axisPens[2]; ///< on white, on black
    QPen gridPens[2]; ///< the same
    QVector<QPen> cellPens; ///< by cell, on either background
    QVector<QPen> selectedCellPens;
};
