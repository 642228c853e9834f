#pragma once

#include "protocol/fieldtext.h"
#include "protocol/lineconversions.h"
#include "protocol/recordline.h"
#include "data/records/recordlist.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

/// A view on a line as the parsers have it.
inline FieldText textOf(const QByteArray &line)
{
    return {reinterpret_cast<const uchar *>(line.constData()), line.size()};
}

/// The record's line as files hold it.
inline QByteArray written(const Varnel3Data &record)
{
    char line[maxRecordLineLength];
    return QByteArray(line, int(writeRecordLine(line, record) - line));
}

/// All fields of a record as numbers, to be compared at once.
inline std::vector<double> fieldsOf(const Varnel3Data &record)
{
    std::vector<double> fields = {double(record.balancedMah), double(record.mode), double(record.cellType),
        double(record.flag1), double(record.flag2), double(record.flag3), double(record.flag4),
        double(record.flag5), double(record.ballansingCurrent), double(record.time), double(record.hour),
        double(record.minute), double(record.second), double(record.voltage), double(record.current),
        double(record.temperature), double(record.energy), double(record.internalResistance),
        double(record.voltageSlope), double(record.cellCount), double(record.cellMax), double(record.cellMin),
        double(record.cellAverage), double(record.balanceMax), double(record.device),
        double(record.resistanceValid), record.resistanceSum};
    for (const CellData &cell : record.cells)
        fields.insert(fields.end(),
            {double(cell.voltage), double(cell.balance), double(cell.balanceCharge), cell.resistance});
    return fields;
}

/// Records of which a record line says all, so that they come back from it as they are.
class RandomRecords {
public:
    explicit RandomRecords(unsigned seed)
        : m_random(seed)
    {
    }

    int between(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_random);
    }

    /// Each figure of the usual width where `usual`, else any that a line takes.
    Varnel3Data next(bool usual)
    {
        Varnel3Data record;
        record.device = Varnel3Data::Varnel3;
        record.mode = between(Varnel3Data::Charge, Varnel3Data::Format);
        record.cellType = between(0, Varnel3Data::noCellType - 1);
        record.cellCount = usual ? between(0, Varnel3Data::maxCells) : between(-9, 99);
        record.ballansingCurrent = between(0, 4) * balancingCurrentStep;
        for (char *flag : {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5})
            *flag = this->flag();
        record.setTime(figure(usual, between(0, 1) == 1 ? 99999 : 999999999));
        for (int *value : {&record.voltage, &record.current, &record.internalResistance, &record.energy})
            *value = figure(usual, 99999);
        if (record.flag2 == '1') // the line counts in tens
            record.energy = usual ? record.energy / 10 * 100 : record.energy / 10 * 10;
        record.temperature = figure(usual, 999);
        for (int i = 0; i <= std::min(record.cellCount, Varnel3Data::maxCells - 1); ++i) {
            record.cells[i].voltage = figure(usual, 9999);
            record.cells[i].balance = between(0, 10) * balanceStep;
        }
        updateCellStatistics(record);
        return record;
    }

    RecordList recording(int count)
    {
        RecordList records;
        for (int i = 0; i < count; ++i)
            records.append(next(between(0, 3) > 0));
        return records;
    }

private:
    int figure(bool usual, int largest)
    {
        if (usual)
            return between(0, largest);
        if (between(0, 3) == 0) // where another digit begins
            return between(-1, 1) + (between(0, 1) == 1 ? 1 : -1) * int(std::pow(10, between(0, 9)));
        const int bits = between(1, 31);
        constexpr int all = std::numeric_limits<int>::max();
        return between(-(all >> (31 - bits)) - 1, all >> (31 - bits));
    }
    // Those that mean something, or any byte that ends neither field nor line.
    char flag()
    {
        static const char known[] = "_1BSMEE%";
        if (between(0, 1) == 1)
            return known[between(0, 7)];
        const char any = char(between(0, 255));
        return any == ',' || any == '\n' ? '_' : any;
    }

    std::mt19937 m_random;
};
