#include "desk/packsource.h"

#include "desk/graphwindows.h"
#include "desk/stalewatch.h"
#include "graph/mdigraphchild.h"

QVector<PackVoltages> PackSource::packs() const
{
    QVector<PackVoltages> all;
    const auto children = m_graphs->all();
    for (const MdiGraphChild *child : children) {
        const RecordList &records = child->store().records();
        PackVoltages pack
            = PackVoltages::of(records.isEmpty() ? Varnel3Data() : records.last(), child->windowNumber());
        pack.source = child->sourceName();
        pack.selected = child->selectedCells();
        pack.staleSince = m_watch->staleSince(child);
        all.append(pack);
    }
    return all;
}

void PackSource::toggleCell(int windowNumber, int cell)
{
    if (cell < 0 || cell >= PackVoltages::maxCells)
        return;
    const auto children = m_graphs->all();
    for (MdiGraphChild *child : children) {
        if (child->windowNumber() != windowNumber)
            continue;
        CellSelection cells = child->selectedCells();
        cells[size_t(cell)] = !cells[size_t(cell)];
        child->setSelectedCells(cells);
    }
}
