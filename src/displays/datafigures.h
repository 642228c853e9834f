#pragma once

#include "displays/resistancesummary.h"
#include "settings/viewswitches.h"

#include <QRgb>
#include <QString>

class Varnel3Data;

/// What the data display says: the text and the colour of each of its labels, made from one
/// record after the other. Knows no widget.
class DataFigures {
public:
    enum Item {
        Time,
        Voltage,
        Current,
        Temperature,
        Capacity,
        Slope,
        Resistance,
        Mode,
        Cells,
        VoltageUnit,
        VoltageNote,
        CurrentUnit,
        MaxCellNote,
        CapacityUnit,
        MinCellNote,
        TemperatureUnit,
        SlopeUnit,
        ResistanceUnit,
        itemCount
    };
    static constexpr int cellSlots = 16;

    struct View {
        bool statistics = false; ///< cell statistics for records that carry cell data
        CellValue cellValue = CellValue::Voltage;
    };

    DataFigures();

    const QString &text(Item item) const { return m_texts[item]; }
    QRgb colour(Item item) const { return m_colours[item]; }
    /// Value of cell slot 0..15; empty where there is none.
    const QString &cellText(int slot) const { return m_cellTexts[slot]; }
    QRgb cellColour() const { return m_cellColour; }

    /// The normal view without figures.
    void clear();
    /// Shows `record`; the resistance panel takes the cells' values from `resistances`, mOhm.
    void show(const Varnel3Data &record, const View &view, const CellResistances &resistances);
    /// Mean cell voltage instead of the pack's in the normal view; a shown figure follows at once.
    void setPerCellVoltage(bool on);
    bool perCellVoltage() const { return m_perCellVoltage; }

private:
    void showNormal(const Varnel3Data &record);
    void showStatistics(const Varnel3Data &record);
    void showCells(const Varnel3Data &record, CellValue value);
    void showResistances(const Varnel3Data &record, const CellResistances &resistances);
    void enterNormalView();
    void enterStatisticsView();
    void showVoltage();

    std::array<QString, itemCount> m_texts;
    std::array<QRgb, itemCount> m_colours{};
    std::array<QString, cellSlots> m_cellTexts;
    QRgb m_cellColour;
    int m_voltage = 0; // mV, of the record shown last
    int m_cellCount = 0;
    bool m_perCellVoltage = false;
    bool m_statistics = false;
};
