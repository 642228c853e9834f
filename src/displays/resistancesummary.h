#pragma once

#include <array>

class Varnel3Data;

/// Internal resistances of the cells, mOhm; 0 where none is known.
using CellResistances = std::array<double, 16>;

/// The resistances of `record`'s cell slots, all of them.
CellResistances resistancesOf(const Varnel3Data &record);

/// What the resistances of a pack come to.
struct ResistanceSummary {
    double sum = 0.0; ///< mOhm
    double mean = 0.0; ///< mOhm; `sum` divided by the cells present
    double highest = 0.0; ///< mOhm
    double lowest = 99.9; ///< mOhm; at most this, however high the resistances are
    int highestCell = 0; ///< index; the first one on a tie
    int lowestCell = 0; ///< index; the first one on a tie
    /// Every cell has a resistance. Only then do the other figures mean anything together.
    bool complete = false;

    /// Over the first `count` of `resistances`: the cells present, 0..16, whatever count the device sent.
    static ResistanceSummary of(const CellResistances &resistances, int count);
    /// (highest - lowest) / lowest in per cent, half a per cent added, rounded
    /// half to even. Only when complete.
    double spreadPercent() const;
};
