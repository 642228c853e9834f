#pragma once

#include "data/varnel3data.h"

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

    /// Calls visit(column, member) for each of a record's own columns.
    template <typename Visit>
    static void eachOwn(const Visit &visit)
    {
        using Record = Varnel3Data;
        visit(Time, &Record::time);
        visit(Voltage, &Record::voltage);
        visit(Current, &Record::current);
        visit(Temperature, &Record::temperature);
        visit(Energy, &Record::energy);
        visit(InternalResistance, &Record::internalResistance);
        visit(Flag1, &Record::flag1);
        visit(Flag2, &Record::flag2);
        visit(Flag3, &Record::flag3);
        visit(Flag4, &Record::flag4);
        visit(Flag5, &Record::flag5);
        visit(Mode, &Record::mode);
        visit(CellMin, &Record::cellMin);
        visit(CellMax, &Record::cellMax);
        visit(CellAverage, &Record::cellAverage);
        visit(ResistanceValid, &Record::resistanceValid);
        visit(BalancedMah, &Record::balancedMah);
        visit(CellType, &Record::cellType);
        visit(BallansingCurrent, &Record::ballansingCurrent);
        visit(Hour, &Record::hour);
        visit(Minute, &Record::minute);
        visit(Second, &Record::second);
        visit(VoltageSlope, &Record::voltageSlope);
        visit(CellCount, &Record::cellCount);
        visit(BalanceMax, &Record::balanceMax);
        visit(Device, &Record::device);
    }
    /// Calls visit(column, member) for each column of a cell.
    template <typename Visit>
    static void eachOfCell(const Visit &visit)
    {
        visit(CellVoltage, &CellData::voltage);
        visit(CellBalance, &CellData::balance);
        visit(CellCharge, &CellData::balanceCharge);
    }
    /// The fraction `index` of a record, at its place there.
    template <typename Record>
    static auto &fraction(Record &record, int index)
    {
        return index < Varnel3Data::maxCells ? record.cells[index].resistance : record.resistanceSum;
    }
};
