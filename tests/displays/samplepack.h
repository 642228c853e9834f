#pragma once

#include "displays/voltagesource.h"
#include "data/varnel3data.h"
#include "protocol/lineconversions.h"

#include <numeric>

/// A charging LiPo pack with cell data; its statistics are those of `millivolts`.
inline Varnel3Data samplePack(const QVector<int> &millivolts)
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.mode = Varnel3Data::Charge;
    record.cellType = 5;
    record.flag5 = 'B';
    record.cellCount = millivolts.size();
    for (int i = 0; i < millivolts.size(); ++i)
        record.cells[i].voltage = millivolts[i];
    record.voltage = std::accumulate(millivolts.begin(), millivolts.end(), 0);
    updateCellStatistics(record);
    return record;
}

/// The same with the cells' resistances in mOhm.
inline Varnel3Data sampleResistances(const QVector<double> &milliohms)
{
    Varnel3Data record = samplePack(QVector<int>(milliohms.size(), 4000));
    for (int i = 0; i < milliohms.size(); ++i)
        record.cells[i].resistance = milliohms[i];
    return record;
}

/// Graph window `number` with such a pack.
inline PackVoltages packOf(int number, const QVector<int> &millivolts, const QVector<int> &selected = {})
{
    PackVoltages result = PackVoltages::of(samplePack(millivolts), number);
    for (const int cell : selected)
        result.selected[cell] = true;
    return result;
}

/// So many windows with sixteen cells each.
inline QVector<PackVoltages> sixteens(int windows)
{
    QVector<PackVoltages> result;
    while (result.size() < windows)
        result.append(packOf(result.size() + 1, QVector<int>(16, 3701 + result.size())));
    return result;
}
