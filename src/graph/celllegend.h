#pragma once

#include "graph/graphlayout.h"

/// The rows of the cells in the legend: a heading of two rows, then a row a cell. They lie beside the upper
/// plot, or along the whole height where that would make them too low to be read.
class CellLegend {
public:
    CellLegend(const GraphLayout &layout, int cellCount);

    int cellCount() const { return m_cellCount; }
    /// The rows take the place of the lower plot's legend too.
    bool isWholeColumn() const { return m_whole; }
    QRect heading(int line) const; ///< line 0 or 1
    QRect row(int cell) const;
    /// The cell whose row holds height `y`; -1 for none.
    int cellAt(int y) const;

private:
    int border(int row) const { return m_column.top() + int(row * m_rowHeight); }

    QRect m_column;
    int m_cellCount;
    bool m_whole;
    double m_rowHeight;
};
