#pragma once

/// State of the view switches, as plain values.
struct ViewSwitches {
    bool data = false; ///< data display shown
    bool graph = false; ///< voltage comparison shown
    bool barGraph = false; ///< capacity comparison shown
    bool temperature = true; ///< " T "
    bool delta = true; ///< "  dV " checked
    bool resistance = true; ///< " Rw "
    bool balancer = false; ///< " B ": balancer view, and the data display's statistics
    bool average = false; ///< " Avg ": minimum, maximum, average and delta instead of the cells
    bool power = false; ///< bar display shown
    bool blackBackground = true;
    bool holdView = false; ///< new records leave zoom and cursor of the graph windows as they are
    int cellSelectMode = 0; ///< 0 " S " all, selected emphasised; 1 " + " selected only; 2 " - " all but them
    int energyMode = 0; ///< per-cell quantity: 0 " Vc " voltage, 1 " Ah " charge, 2 " Ri " resistance
    int deltaMode = 1; ///< 0 neither, 1 dV, 2 mAh on the right axis of the charger view

    friend bool operator==(const ViewSwitches &a, const ViewSwitches &b)
    {
        return a.data == b.data && a.graph == b.graph && a.barGraph == b.barGraph
            && a.temperature == b.temperature && a.delta == b.delta && a.resistance == b.resistance
            && a.balancer == b.balancer && a.average == b.average && a.power == b.power
            && a.blackBackground == b.blackBackground && a.cellSelectMode == b.cellSelectMode
            && a.energyMode == b.energyMode && a.deltaMode == b.deltaMode && a.holdView == b.holdView;
    }
    friend bool operator!=(const ViewSwitches &a, const ViewSwitches &b) { return !(a == b); }
};
