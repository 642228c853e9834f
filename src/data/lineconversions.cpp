#include "data/lineconversions.h"

#include "data/varnel3data.h"

void updateCellStatistics(Varnel3Data &record)
{
    record.cellMax = record.cellMin = record.cellAverage = record.balanceMax = 0;
    if (record.flag5 != 'B')
        return;
    const CellData &first = record.cells[0];
    record.cellMax = record.cellMin = record.cellAverage = first.voltage;
    record.balanceMax = first.balance;
    if (record.cellCount < 1)
        return;
    qint64 sum = first.voltage;
    const int cells = record.cellsPresent();
    for (int i = 1; i < cells; ++i) {
        const CellData &cell = record.cells[i];
        record.cellMax = qMax(record.cellMax, cell.voltage);
        record.cellMin = qMin(record.cellMin, cell.voltage);
        record.balanceMax = qMax(record.balanceMax, cell.balance);
        sum += cell.voltage;
    }
    record.cellAverage = int(sum / record.cellCount);
}
