#include "simulator/pack.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

constexpr double slowShare = 0.6; // of the resistance that acts only after a while
constexpr double slowSeconds = 40;
constexpr double coolingSeconds = 1500;
constexpr double heatPerAh = 25; // J/K of a cell of 1 Ah
constexpr double lossPerCharge = 0.0008; // of the capacity
constexpr double gainPerCharge = 0.002; // of the resistance
constexpr double leastCapacity = 0.2; // that age leaves
constexpr int failingFactor = 6;

/// About normal, mean 0 and deviation 1, the same on every system.
double bell(QRandomGenerator &random)
{
    double sum = 0;
    for (int i = 0; i < 12; ++i)
        sum += random.generateDouble();
    return sum - 6;
}

} // namespace

Pack::Pack(const PackPlan &plan, QRandomGenerator &random)
    : m_plan(plan)
    , m_temperature(plan.ambient)
{
    const double nominal = std::max(1.0, plan.capacity);
    double smallest = nominal;
    for (int i = 0; i < plan.cells; ++i) {
        Cell cell;
        const bool weak = i + 1 == plan.weakCell;
        cell.capacity = nominal * (weak ? 0.7 : 1) * std::max(0.5, 1 + plan.spread * bell(random));
        cell.resistance = chemistry().resistance * 1000 / nominal * (weak ? 2.5 : 1)
            * std::max(0.5, 1 + 0.06 * bell(random));
        const int charges = plan.age * (i + 1 == plan.failingCell ? failingFactor : 1);
        cell.capacity *= std::max(leastCapacity, 1 - lossPerCharge * charges);
        cell.resistance *= 1 + gainPerCharge * charges;
        smallest = std::min(smallest, cell.capacity);
        m_cells.append(cell);
    }
    // cells that were full together have since given the same charge, so the small ones are emptier
    for (Cell &cell : m_cells) {
        const double taken = (1 - plan.charge) * smallest + plan.spread * bell(random) * nominal;
        cell.charge = std::clamp(cell.capacity - taken, 0.0, cell.capacity);
    }
    updateVoltages(0);
}

void Pack::step(double current, double balancing)
{
    double heat = 0; // W
    for (Cell &cell : m_cells) {
        const double share = cell.charge / cell.capacity;
        const double kept = current > 0 ? current * accepted(share) : current;
        cell.charge += (kept - balancing * cell.level / 10) / 3600;
        cell.polarisation += (current * cell.resistance / 1000 * slowShare - cell.polarisation) / slowSeconds;
        heat += current * current * cell.resistance * 1e-9
            + (current > 0 ? (current - kept) * cell.voltage * 1e-6 : 0);
    }
    const double capacity = heatPerAh * m_plan.capacity / 1000 * std::max<double>(1, m_cells.size());
    m_temperature += heat / capacity - (m_temperature - m_plan.ambient) / coolingSeconds;
    updateVoltages(current);
}

double Pack::voltage() const
{
    double sum = 0;
    for (const Cell &cell : m_cells)
        sum += cell.voltage;
    return sum;
}

double Pack::resistance() const
{
    double sum = 0;
    for (const Cell &cell : m_cells)
        sum += resistance(cell);
    return sum;
}

double Pack::resistance(const Cell &cell) const
{
    const double share = std::clamp(cell.charge / cell.capacity, 0.0, 1.0);
    return cell.resistance * (1 + 0.6 * std::exp(-share / 0.08) + 0.2 * (0.5 - share))
        * std::max(0.5, 1 - 0.006 * (m_temperature - 23));
}

double Pack::lowestVoltage() const
{
    double lowest = 1e9;
    for (const Cell &cell : m_cells)
        lowest = std::min(lowest, cell.voltage);
    return lowest;
}

double Pack::lowestRest() const
{
    double lowest = 1e9;
    for (const Cell &cell : m_cells)
        lowest = std::min(lowest, cell.rest);
    return lowest;
}

double Pack::charge() const
{
    double lowest = 1e9;
    for (const Cell &cell : m_cells)
        lowest = std::min(lowest, cell.charge / cell.capacity);
    return lowest;
}

double Pack::limitCurrent(bool eachCell) const
{
    double room = 0, smallest = 1e9;
    for (const Cell &cell : m_cells) {
        const double cellRoom = chemistry().full - cell.rest - cell.polarisation;
        room += cellRoom;
        smallest = std::min(smallest, cellRoom * 1000 / resistance(cell));
    }
    return std::max(0.0, eachCell ? smallest : room * 1000 / std::max(0.001, resistance()));
}

/// Share of a charging current that a cell keeps; the rest becomes heat. Kinds without voltage limit
/// take less and less when nearly full.
double Pack::accepted(double share) const
{
    if (chemistry().peakDrop <= 0 || share < 0.85)
        return 1;
    return std::max(0.05, 1 - (share - 0.85) / 0.15);
}

/// mV by which a nearly full cell of a kind without voltage limit rises; warmth takes it back.
double Pack::overcharge(double share) const
{
    if (chemistry().peakDrop <= 0)
        return 0;
    const double x = std::clamp((share - 0.8) / 0.2, 0.0, 1.0);
    return 70 * x * x - 2.5 * std::max(0.0, m_temperature - m_plan.ambient) * x;
}

void Pack::updateVoltages(double current)
{
    for (Cell &cell : m_cells) {
        const double share = cell.charge / cell.capacity;
        cell.rest = restVoltage(chemistry(), share);
        cell.voltage = std::max(0.0,
            cell.rest + cell.polarisation + current * resistance(cell) / 1000
                + (current > 0 ? overcharge(share) : 0));
    }
}

} // namespace sim
