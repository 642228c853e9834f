#include "protocol/lineconversions.h"

#include "data/varnel3data.h"

void updateCellStatistics(Varnel3Data &record)
{
    record.cellMax = record.cellMin = record.cellAverage = record.balanceMax = 0;
    if (!record.hasBalancingData())
        return;
    const CellData &first = record.cells[0];
    int highest = first.voltage; // in variables of their own: each could lie in a record
    int lowest = highest;
    int balance = first.balance;
    qint64 sum = first.voltage;
    const int cells = record.cellsPresent();
    for (int i = 1; i < cells; ++i) {
        const CellData &cell = record.cells[i];
        highest = qMax(highest, cell.voltage);
        lowest = qMin(lowest, cell.voltage);
        balance = qMax(balance, cell.balance);
        sum += cell.voltage;
    }
    record.cellMax = highest;
    record.cellMin = lowest;
    record.balanceMax = balance;
    record.cellAverage = int(sum / qMax(1, record.cellCount));
}
