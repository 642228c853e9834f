#pragma once

#include "simulator/chemistry.h"

#include <QVector>

class QRandomGenerator;

namespace sim {

/// One cell as the physics sees it.
struct Cell {
    double capacity = 0; ///< mAh
    double charge = 0; ///< mAh held
    double resistance = 0; ///< mOhm, half full and at 23 degrees
    double polarisation = 0; ///< mV, slow part of the voltage under load
    double rest = 0; ///< mV
    double voltage = 0; ///< mV under load
    int level = 0; ///< balancer load in tenths, 0..10
};

/// How a pack is made.
struct PackPlan {
    int chemistry = 5;
    int cells = 6;
    double capacity = 2200; ///< mAh
    double charge = 0.15; ///< share of the capacity held at the start
    double spread = 0.015; ///< of capacity and charge from cell to cell
    int weakCell = 0; ///< 1..cells: 30 % less capacity and 2.5 times the resistance; 0: none
    int age = 0; ///< charges it has been through: each takes some capacity and adds some resistance
    int failingCell = 0; ///< 1..cells: ages six times as fast; 0: none
    double ambient = 23; ///< degrees Celsius
};

/// Cells in series with a common temperature.
class Pack {
public:
    /// Takes what varies from cell to cell from `random`.
    Pack(const PackPlan &plan, QRandomGenerator &random);

    /// One second with `current` mA through the pack (positive: charging); the balancer takes `level` tenths
    /// of `balancing` mA from each cell besides.
    void step(double current, double balancing);

    const Chemistry &chemistry() const { return chemistries().at(m_plan.chemistry); }
    const QVector<Cell> &cells() const { return m_cells; }
    void setLevel(int cell, int level) { m_cells[cell].level = level; }
    double voltage() const; ///< mV under load
    double resistance() const; ///< mOhm of all cells as they are now
    double resistance(const Cell &cell) const; ///< mOhm as it is now: more when nearly empty, less when warm
    double lowestVoltage() const; ///< mV, of the cells
    double lowestRest() const; ///< mV, of the cells without load
    double charge() const; ///< share held by the cell that holds the smallest
    double temperature() const { return m_temperature; } ///< degrees Celsius
    /// The current in mA that brings the pack (or, with `eachCell`, its highest
    /// cell) to the voltage limit at once.
    double limitCurrent(bool eachCell) const;

private:
    double accepted(double share) const;
    double overcharge(double share) const;
    void updateVoltages(double current);

    PackPlan m_plan;
    QVector<Cell> m_cells;
    double m_temperature = 23;
};

} // namespace sim
