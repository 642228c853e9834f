#pragma once

#include "displays/voltagesource.h"

class GraphWindows;
class StaleWatch;

/// Gives the voltage comparison the newest records of the graph windows.
class PackSource : public VoltageSource {
public:
    /// Both outlive this.
    PackSource(GraphWindows *graphs, StaleWatch *watch)
        : m_graphs(graphs)
        , m_watch(watch)
    {
    }

    QVector<PackVoltages> packs() const override;
    void toggleCell(int windowNumber, int cell) override;

private:
    GraphWindows *m_graphs;
    StaleWatch *m_watch;
};
