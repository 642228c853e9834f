#include "graph/cellpicker.h"

CellPicker::CellPicker(QObject *parent)
    : QObject(parent)
{
}

void CellPicker::setCells(const CellSelection &cells)
{
    if (cells == m_cells)
        return;
    m_cells = cells;
    emit changed();
}

void CellPicker::click(int cell, bool toggle)
{
    CellSelection cells = {};
    if (cell >= 0) {
        if (toggle)
            cells = m_cells;
        cells[size_t(cell)] = !cells[size_t(cell)];
    }
    m_last = cell;
    setCells(cells);
}

void CellPicker::step(int direction, bool add, int count)
{
    if (count < 1)
        return;
    const int from = m_last == none && direction == -1 ? count : m_last;
    m_last = (from + direction + count) % count;
    CellSelection cells = {};
    if (add)
        cells = m_cells;
    cells[size_t(m_last)] = true;
    setCells(cells);
}
