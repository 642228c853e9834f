#pragma once

/// What is told of each cell: " Vc ", " Ah ", " Ri ".
enum class CellValue { Voltage, Charge, Resistance };
/// Cells that are drawn: " S ", where the selected ones are emphasised, " + ", " - ".
enum class CellsShown { All, Selected, Unselected };
/// What the right axis of the charger view measures: nothing, "  dV ", " mAh ".
enum class RightAxis { None, Slope, Energy };

/// State of the view switches, as plain values.
struct ViewSwitches {
    bool dataDisplay = false; ///< " DATA ": shown
    bool voltageComparison = false; ///< "Graph": shown
    bool capacityComparison = false; ///< "Bar Graph": shown
    bool barDisplay = false; ///< " P% ": shown
    bool temperature = true; ///< " T "
    bool delta = true; ///< "  dV " checked
    bool resistance = true; ///< " Rw "
    bool balancer = false; ///< " B ": balancer view, and the data display's statistics
    bool average = false; ///< " Avg ": minimum, maximum, average and delta instead of the cells
    bool blackBackground = true;
    bool distinctLines = false; ///< lines differ in more than hue: dashes and lightness; bars carry letters
    bool holdView = false; ///< new records leave zoom and cursor of the graph windows as they are
    CellsShown cellsShown = CellsShown::All;
    CellValue cellValue = CellValue::Voltage;
    RightAxis rightAxis = RightAxis::Slope;

    friend bool operator==(const ViewSwitches &a, const ViewSwitches &b)
    {
        return a.dataDisplay == b.dataDisplay && a.voltageComparison == b.voltageComparison
            && a.capacityComparison == b.capacityComparison && a.barDisplay == b.barDisplay
            && a.temperature == b.temperature && a.delta == b.delta && a.resistance == b.resistance
            && a.balancer == b.balancer && a.average == b.average && a.blackBackground == b.blackBackground
            && a.distinctLines == b.distinctLines && a.holdView == b.holdView && a.cellsShown == b.cellsShown
            && a.cellValue == b.cellValue && a.rightAxis == b.rightAxis;
    }
    friend bool operator!=(const ViewSwitches &a, const ViewSwitches &b) { return !(a == b); }
};
