#pragma once

#include "settings/viewswitches.h"

#include <array>

class Varnel3Data;

/// The cells of one record as the bar display draws them: a value of the chosen
/// quantity and a balancing level each.
struct PowerBars {
    static constexpr int maxCells = 16;

    CellValue quantity = CellValue::Voltage;
    int count = 0; ///< cells, 0..maxCells; 0: the record carries no cell data
    int lower = -100; ///< ends of the scale, in the unit of the values
    int upper = 100;
    /// mV from the pack's mean; mAh balanced; or per cent of the smallest resistance above it.
    std::array<int, maxCells> values{};
    std::array<bool, maxCells> known{}; ///< whether the cell has a value: one without a resistance has none
    std::array<int, maxCells> levels{}; ///< balancing, per cent, 0..100

    bool hasData() const { return count > 0; }

    static PowerBars of(const Varnel3Data &record, CellValue quantity);
};
