#pragma once

#include "displays/voltagesource.h"

class GraphWindows;
class StaleWatch;

/// Gives the voltage comparison the newest records of the graph windows.
class PackSource : public VoltageSource {
public:
    /// Both outlive this.
    PackSource(GraphWindows *graphWindows, StaleWatch *staleWatch)
        : graphs(graphWindows)
        , watch(staleWatch)
    {
    }

    QVector<PackVoltages> packs() const override;
    void toggleCell(int windowNumber, int cell) override;

private:
    GraphWindows *graphs;
    StaleWatch *watch;
};
