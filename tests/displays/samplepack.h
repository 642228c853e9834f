#pragma once

#include "data/varnel3data.h"

#include <QVector>

#include <algorithm>
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
    const int sum = std::accumulate(millivolts.begin(), millivolts.end(), 0);
    record.voltage = sum;
    record.cellAverage = millivolts.isEmpty() ? 0 : sum / millivolts.size();
    record.cellMax = millivolts.isEmpty() ? 0 : *std::max_element(millivolts.begin(), millivolts.end());
    record.cellMin = millivolts.isEmpty() ? 0 : *std::min_element(millivolts.begin(), millivolts.end());
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
