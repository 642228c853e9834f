#pragma once

#include "graph/scene/graphlayout.h"

/// The rows of the cells in the legend: a heading of two lines, then a row a cell. They lie beside the upper
/// plot. Where that would make them too low to be read they reach down to the lines of the lower plot's
/// legend, which keep their room, and where that is not enough they stand in two columns, beside the upper
/// plot again if they fit there.
class CellLegend {
public:
    CellLegend(const GraphLayout &layout, int cellCount);

    int cellCount() const { return m_cellCount; }
    int columns() const { return m_columns; } ///< 1 or 2, the left one first
    QRect heading(int line) const; ///< line 0 or 1
    QRect row(int cell) const;
    /// The cell whose row holds `position`; -1 for none.
    int cellAt(const QPoint &position) const;
    /// Where the legend of the lower plot stands.
    QRect below() const { return m_below; }

private:
    int rowsPerColumn() const { return (m_cellCount + m_columns - 1) / m_columns; }
    void stretchTo(int belowHeight);
    void pair();
    void divide(int columns);

    GraphLayout m_layout;
    QRect m_column;
    QRect m_below;
    int m_cellCount;
    int m_columns = 1;
    double m_headingHeight = 0.0;
    double m_rowHeight = 0.0; // px, as the above
};
