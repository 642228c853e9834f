#include "graph/scene/celllegend.h"

#include <cmath>

namespace {

constexpr int headingLines = 2;
constexpr double lowestHeading = 10.0; // px, with room for descenders
constexpr double lowestRow = 11.0; // px; lower ones may use the room below
constexpr double closestRow = 8.5; // digits that hardly part
constexpr double highestRow = 17.0;
constexpr int belowHeights[] = {90, 66}; // px, three names and values at their best and closer
constexpr int gap = 3; // px above them
constexpr int fewCells = 4; // stay in one column
constexpr int pairWidening = 8; // px that two columns take of the room between axis and legend
constexpr int halfFigure = 8; // px that the axis' uppermost figure stands above its plot
constexpr int leftWidth = 31; // px of the left one, with numbers of one digit

} // namespace

CellLegend::CellLegend(const GraphLayout &layout, int cellCount)
    : m_layout(layout)
    , m_column(layout.legend(PlotArea::Upper))
    , m_below(layout.legend(PlotArea::Lower))
    , m_cellCount(cellCount)
{
    divide(1);
    for (int height : belowHeights) {
        if (m_rowHeight < lowestRow) {
            stretchTo(height);
            divide(1);
        }
    }
    if (m_rowHeight < closestRow && cellCount > fewCells)
        pair();
}

// Along the whole height, but for the lower plot's lines at its end.
void CellLegend::stretchTo(int belowHeight)
{
    m_column = m_layout.legend();
    const int height = qMin(belowHeight, m_layout.legend(PlotArea::Lower).height());
    m_below = QRect(m_column.left(), m_column.bottom() + 1 - height, m_column.width(), height);
    m_column.setBottom(m_below.top() - gap);
}

// They reach to the axis: beside the upper plot, if that will do, they keep clear of the lower one's figures.
void CellLegend::pair()
{
    const QRect below = m_below;
    const int stretched = m_column.bottom();
    m_below = m_layout.legend(PlotArea::Lower);
    m_column = m_layout.legend(PlotArea::Upper);
    m_column.setLeft(m_column.left() - pairWidening);
    m_column.setBottom(m_below.top() - halfFigure);
    divide(2);
    if (m_rowHeight < closestRow) {
        m_below = below;
        m_column.setBottom(stretched);
        divide(2);
    }
    m_rowHeight = std::floor(m_rowHeight); // of low rows all are of one height
}

void CellLegend::divide(int columns)
{
    m_columns = columns;
    const int rows = rowsPerColumn();
    const double height = m_column.height();
    m_headingHeight = qBound(lowestHeading, height / (rows + headingLines), highestRow);
    m_rowHeight = qMin(highestRow, (height - headingLines * m_headingHeight) / qMax(1, rows));
}

QRect CellLegend::heading(int line) const
{
    return {QPoint(m_column.left(), m_column.top() + int(line * m_headingHeight)),
        QPoint(m_column.right(), m_column.top() + int((line + 1) * m_headingHeight) - 1)};
}

QRect CellLegend::row(int cell) const
{
    const int line = cell % qMax(1, rowsPerColumn());
    const double top = m_column.top() + int(headingLines * m_headingHeight);
    QRect row(QPoint(m_column.left(), int(top + line * m_rowHeight)),
        QPoint(m_column.right(), int(top + (line + 1) * m_rowHeight) - 1));
    if (m_columns > 1 && cell == line)
        row.setWidth(leftWidth);
    else if (m_columns > 1)
        row.setLeft(row.left() + leftWidth);
    return row;
}

int CellLegend::cellAt(const QPoint &position) const
{
    for (int cell = 0; cell < m_cellCount; ++cell) {
        if (row(cell).contains(position))
            return cell;
    }
    return -1;
}
