#include "graph/plot/graphtools.h"

#include "data/varnel3data.h"
#include "graph/scene/graphcolours.h"

GraphTools::GraphTools()
{
    constexpr int emphasis = 2; // px
    for (bool black : {false, true}) {
        const GraphColours colours(black);
        axisPens[black] = colours.axis();
        gridPens[black] = colours.grid();
        gridPens[black].setStyle(Qt::DotLine);
    }
    valueScale.setAlignment(QwtScaleDraw::LeftScale);
    for (int cell = 0; cell < Varnel3Data::maxCells; ++cell) {
        const QColor colour = GraphColours(true).cell(cell);
        cellPens.append(QPen(colour, 1));
        selectedCellPens.append(QPen(colour, emphasis));
    }
}
