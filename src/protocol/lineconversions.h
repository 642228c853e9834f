#pragma once

class Varnel3Data;

/// mA that the digit of the balancing current counts.
constexpr int balancingCurrentStep = 250;

/// Per cent that a step of the balance character stands for.
constexpr int balanceStep = 10;

/// Per cent that a balance character stands for: '0' to '9' for 0 to 90, ':' for 100, anything else 0.
constexpr int balancePercent(unsigned character)
{
    return character >= '0' && character <= ':' ? int(character - '0') * balanceStep : 0;
}

/// Sets the cell statistics of a freshly parsed record; all 0 without balancing data.
void updateCellStatistics(Varnel3Data &record);
