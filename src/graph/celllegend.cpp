#include "graph/celllegend.h"

namespace {

constexpr int headingRows = 2;
constexpr double lowestRow = 11.0; // px, still to be read
constexpr double highestRow = 17.0;

} // namespace

CellLegend::CellLegend(const GraphLayout &layout, int cellCount)
    : m_column(layout.legend(PlotArea::Upper))
    , m_cellCount(cellCount)
{
    const int rows = cellCount + headingRows;
    m_whole = m_column.height() < rows * lowestRow;
    if (m_whole)
        m_column = layout.legend();
    m_rowHeight = qMin(highestRow, double(m_column.height()) / rows);
}

QRect CellLegend::heading(int line) const
{
    return {QPoint(m_column.left(), border(line)), QPoint(m_column.right(), border(line + 1) - 1)};
}

QRect CellLegend::row(int cell) const
{
    return heading(headingRows + cell);
}

int CellLegend::cellAt(int y) const
{
    for (int cell = 0; cell < m_cellCount; ++cell) {
        if (y >= row(cell).top() && y <= row(cell).bottom())
            return cell;
    }
    return -1;
}
