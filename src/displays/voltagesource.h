#pragma once

#include "displays/packvoltages.h"

#include <QVector>

/// What the voltage comparison asks of whoever knows the graph windows.
class VoltageSource {
public:
    virtual ~VoltageSource() = default;

    /// One for each graph window, in the order of their numbers.
    virtual QVector<PackVoltages> packs() const = 0;
    /// Selects `cell` (0..15) of graph window `windowNumber`, or takes its selection back.
    virtual void toggleCell(int windowNumber, int cell) = 0;
};
