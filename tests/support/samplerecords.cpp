#include "support/samplerecords.h"

#include <cmath>

namespace {

constexpr double pi = 3.14159265358979;

int noise(int index, int width)
{
    return int((unsigned(index) * 2654435761U >> 16) % unsigned(2 * width + 1)) - width;
}

Varnel3Data recordOf(int device, int mode, int cellType, int cellCount, int time)
{
    Varnel3Data record;
    record.device = device;
    record.mode = mode;
    record.cellType = cellType;
    record.cellCount = cellCount;
    record.setTime(time);
    return record;
}

void completeCells(Varnel3Data *record)
{
    record->flag5 = 'B';
    record->cellMax = record->cellMin = record->cells[0].voltage;
    int sum = 0;
    for (int i = 0; i < record->cellCount; ++i) {
        record->cellMax = qMax(record->cellMax, record->cells[i].voltage);
        record->cellMin = qMin(record->cellMin, record->cells[i].voltage);
        sum += record->cells[i].voltage;
    }
    record->cellAverage = sum / record->cellCount;
    record->voltage = sum;
}

} // namespace

RecordList samples::lipoCharge(int count, int period)
{
    RecordList records;
    for (int n = 0; n < count; ++n) {
        const double done = double(n) / qMax(1, count - 1);
        Varnel3Data record = recordOf(Varnel3Data::Varnel3, Varnel3Data::Charge, 5, 6, n * period);
        record.current = done < 0.7 ? 2500 : int(2500 * std::exp(-(done - 0.7) * 9));
        record.temperature = 230 + int(60 * std::sin(done * pi * 0.8)) + noise(n, 2);
        record.energy = int(3300 * (done < 0.7 ? done / 0.8 : 1 - 0.125 * std::exp(-(done - 0.7) * 9)));
        record.internalResistance = 48 - int(9 * done) + noise(n, 2);
        record.ballansingCurrent = 500;
        for (int i = 0; i < 6; ++i) {
            const double ahead = i == 3 ? 0.12 : 0.01 * i;
            const double level = qMin(1.0, done / 0.7 + ahead * (1 - done));
            record.cells[i].voltage = 3500 + int(700 * std::pow(level, 1.6)) + noise(n + i, 1);
            record.cells[i].balance = i == 3 && done > 0.3 ? 70 : 0;
            record.cells[i].balanceCharge = i == 3 ? int(done * 40 * 360000) : 0;
            record.cells[i].resistance = 6.1 + i * 0.4;
        }
        completeCells(&record);
        records.append(record);
    }
    return records;
}

RecordList samples::nimhDischarge(int count, int period)
{
    RecordList records;
    for (int n = 0; n < count; ++n) {
        const double done = double(n) / qMax(1, count - 1);
        Varnel3Data record = recordOf(Varnel3Data::Varnel2Plus, Varnel3Data::Discharge, 1, 14, n * period);
        record.current = 5000 + noise(n, 20);
        record.voltage = 14 * int(1310 - 130 * done - 280 * std::pow(done, 12)) + noise(n, 8);
        record.temperature = 251 + int(140 * done);
        record.energy = int(2950 * done);
        records.append(record);
    }
    return records;
}
