#include "displays/powerbars.h"

#include "data/varnel3data.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace {

constexpr int fullScale = 100;

void fillVoltages(PowerBars &bars, const Varnel3Data &record)
{
    constexpr qint64 limit = std::numeric_limits<int>::max();
    for (int i = 0; i < bars.count; ++i) {
        const qint64 deviation = qint64(record.cells[i].voltage) - record.cellAverage;
        bars.values[i] = int(qBound(-limit, deviation, limit));
        bars.known[i] = true;
    }
}

void fillCharges(PowerBars &bars, const Varnel3Data &record)
{
    bars.lower = 0;
    for (int i = 0; i < bars.count; ++i) {
        bars.values[i] = record.cells[i].balanceCharge / Varnel3Data::chargePerMah;
        bars.known[i] = true;
    }
    bars.upper = qMax(fullScale, *std::max_element(bars.values.begin(), bars.values.end()));
}

void fillResistances(PowerBars &bars, const Varnel3Data &record)
{
    bars.lower = 0;
    double smallest = std::numeric_limits<double>::max();
    for (int i = 0; i < bars.count; ++i) {
        bars.known[i] = record.cells[i].resistance > 0.0;
        if (bars.known[i])
            smallest = qMin(smallest, record.cells[i].resistance);
    }
    constexpr double limit = std::numeric_limits<int>::max();
    for (int i = 0; i < bars.count; ++i)
        if (bars.known[i])
            bars.values[i] = qRound(qMin(limit, (record.cells[i].resistance - smallest) / smallest * 100.0));
}

} // namespace

PowerBars PowerBars::of(const Varnel3Data &record, CellValue quantity)
{
    static constexpr void (*fill[])(PowerBars &, const Varnel3Data &)
        = {fillVoltages, fillCharges, fillResistances}; // by quantity

    PowerBars bars;
    bars.quantity = quantity;
    if (!record.hasCellData())
        return bars;
    bars.count = record.cellsPresent();
    for (int i = 0; i < bars.count; ++i)
        bars.levels[i] = qBound(0, record.cells[i].balance, fullScale);
    fill[int(quantity)](bars, record);
    return bars;
}
