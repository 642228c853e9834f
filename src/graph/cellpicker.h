#pragma once

#include "series/cellselection.h"

#include <QObject>

/// Which cells are picked, by clicks on their rows in the legend or by keys.
class CellPicker : public QObject {
    Q_OBJECT

public:
    explicit CellPicker(QObject *parent = nullptr);

    const CellSelection &cells() const { return m_cells; }
    void setCells(const CellSelection &cells);
    /// A click on the row of `cell`, or on none with -1: picks it alone, or with
    /// `toggle` adds it or takes it away.
    void click(int cell, bool toggle = false);
    /// Goes from the cell picked last to the next one of `count` in `direction` (1 or -1) and
    /// picks it alone or, with `add`, too.
    void step(int direction, bool add, int count);

signals:
    void changed();

private:
    static constexpr int none = -1;

    CellSelection m_cells = {};
    int m_last = none; // picked last
};
