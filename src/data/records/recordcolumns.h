#pragma once

#include "data/varnel3data.h"

static_assert(sizeof(Varnel3Data) == 488, "a field more wants a column here");

/// What a record consists of: the columns in which a recording keeps its whole numbers. Resistances are
/// fractions and stand apart.
class RecordColumns {
public:
    enum Column {
        Time,
        Voltage,
        Current,
        Temperature,
        Energy,
        InternalResistance,
        Flag4,
        Flag5,
        Mode,
        CellMin,
        CellMax,
        CellAverage,
        ResistanceValid,
        BalancedMah,
        CellType,
        Flag1,
        Flag2,
        Flag3,
        BallansingCurrent,
        Hour, ///< what it is beyond that of the time; so are the next two
        Minute,
        Second,
        VoltageSlope,
        CellCount,
        BalanceMax,
        Device,
        ownColumns
    };
    /// Behind them, cell after cell.
    enum CellColumn { CellVoltage, CellBalance, CellCharge, columnsOfCell };

    static constexpr int columns = ownColumns + Varnel3Data::maxCells * columnsOfCell;
    static constexpr int fractions = Varnel3Data::maxCells + 1; ///< each cell's resistance, and their sum
    static constexpr int ofCell(int cell, CellColumn column)
    {
        return ownColumns + cell * columnsOfCell + column;
    }

    /// A column and the member of a record or a cell that it keeps, both known when it is compiled.
    template <int number, auto place>
    struct Field {
        static constexpr int column = number;
        static constexpr auto member = place;
    };

    /// Calls visit(field) for each of a record's own columns.
    template <typename Visit>
    static void eachOwn(const Visit &visit)
    {
        using Record = Varnel3Data;
        visit(Field<Time, &Record::time>());
        visit(Field<Voltage, &Record::voltage>());
        visit(Field<Current, &Record::current>());
        visit(Field<Temperature, &Record::temperature>());
        visit(Field<Energy, &Record::energy>());
        visit(Field<InternalResistance, &Record::internalResistance>());
        visit(Field<Flag1, &Record::flag1>());
        visit(Field<Flag2, &Record::flag2>());
        visit(Field<Flag3, &Record::flag3>());
        visit(Field<Flag4, &Record::flag4>());
        visit(Field<Flag5, &Record::flag5>());
        visit(Field<Mode, &Record::mode>());
        visit(Field<CellMin, &Record::cellMin>());
        visit(Field<CellMax, &Record::cellMax>());
        visit(Field<CellAverage, &Record::cellAverage>());
        visit(Field<ResistanceValid, &Record::resistanceValid>());
        visit(Field<BalancedMah, &Record::balancedMah>());
        visit(Field<CellType, &Record::cellType>());
        visit(Field<BallansingCurrent, &Record::ballansingCurrent>());
        visit(Field<Hour, &Record::hour>());
        visit(Field<Minute, &Record::minute>());
        visit(Field<Second, &Record::second>());
        visit(Field<VoltageSlope, &Record::voltageSlope>());
        visit(Field<CellCount, &Record::cellCount>());
        visit(Field<BalanceMax, &Record::balanceMax>());
        visit(Field<Device, &Record::device>());
    }
    /// Calls visit(field) for each column of a cell.
    template <typename Visit>
    static void eachOfCell(const Visit &visit)
    {
        visit(Field<CellVoltage, &CellData::voltage>());
        visit(Field<CellBalance, &CellData::balance>());
        visit(Field<CellCharge, &CellData::balanceCharge>());
    }
    /// The fraction `index` of a record, at its place there.
    template <typename Record>
    static auto &fraction(Record &record, int index)
    {
        return index < Varnel3Data::maxCells ? record.cells[index].resistance : record.resistanceSum;
    }
};
