#pragma once

#include "data/varnel3data.h"

/// The series of a recording: names that its store and those who keep its points share by being such.
class SeriesKinds {
public:
    /// A point for each record. The cell series follow from Cell1 on.
    enum Kind {
        Time, ///< s
        Voltage, ///< V
        Current, ///< A
        Energy, ///< mAh
        Temperature, ///< degrees Celsius, smoothed
        Resistance, ///< mOhm, smoothed; means something from firstResistance() on
        Dv, ///< mV/min, smoothed; 0 before firstResistance()
        CellMin, ///< V
        CellMax, ///< V
        CellAverage, ///< V
        CellDelta, ///< V, highest minus lowest
        Cell1, ///< V
        kindCount = Cell1 + Varnel3Data::maxCells
    };

    /// Index of the first point of resistance and dV.
    static constexpr int firstResistance() { return 17; }

protected:
    SeriesKinds() = default;
};
