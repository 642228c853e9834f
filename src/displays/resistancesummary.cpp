#include "displays/resistancesummary.h"

#include "data/varnel3data.h"

#include <algorithm>
#include <cmath>

CellResistances resistancesOf(const Varnel3Data &record)
{
    CellResistances resistances;
    std::transform(std::begin(record.cells), std::end(record.cells), resistances.begin(),
        [](const CellData &cell) { return cell.resistance; });
    return resistances;
}

ResistanceSummary ResistanceSummary::of(const CellResistances &resistances, int count)
{
    ResistanceSummary result;
    for (int i = 0; i < count; ++i) {
        const double value = resistances[i];
        result.sum += value;
        if (value > result.highest) {
            result.highest = value;
            result.highestCell = i;
        }
        if (value < result.lowest) {
            result.lowest = value;
            result.lowestCell = i;
        }
    }
    result.mean = count > 0 ? result.sum / count : 0.0;
    result.complete = count > 0 && result.lowest > 0.0;
    return result;
}

double ResistanceSummary::spreadPercent() const
{
    const double percent = ((highest - lowest) / lowest + 0.005) * 100.0;
    // Resistances come in tenths, so that 10 % is seldom 0.1 to the last bit:
    // settle the bits before the half counts.
    constexpr double settle = 1e9;
    return std::nearbyint(std::round(percent * settle) / settle);
}
