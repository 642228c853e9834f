#include "simulator/process.h"

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

constexpr int rampSeconds = 15; // until the full current flows
constexpr int restSeconds = 60; // between the steps of formatting and testing
constexpr int stepLimit = 12 * 3600; // no step of a process takes longer
constexpr double keepingShare = 0.03; // of the current, to keep a full pack full
constexpr int settledSeconds = 120; // the shortest balancing

PackPlan packPlan(const DeviceSettings &settings)
{
    PackPlan plan;
    plan.chemistry = settings.chemistry;
    plan.cells = settings.cells;
    plan.capacity = settings.capacity;
    const double suited = settings.task == Task::Charge ? 0.15 : settings.task == Task::Balance ? 0.6 : 0.97;
    plan.charge = settings.charge < 0 ? suited : settings.charge / 100.0;
    const double usual = settings.task == Task::Balance ? 0.03 : 0.012;
    plan.spread = settings.spread < 0 ? usual : settings.spread / 1000.0;
    plan.weakCell = settings.weak;
    plan.age = settings.age;
    plan.failingCell = settings.failing;
    plan.ambient = settings.ambient;
    return plan;
}

} // namespace

Process::Process(const DeviceSettings &settings, quint32 seed)
    : m_settings(settings)
    , m_random(seed)
    , m_noise(seed + 1 + quint32(settings.age))
    , m_pack(packPlan(settings), m_random)
{
    const QVector<QVector<Step>> plans
        = {{Step::Charge}, {Step::Discharge}, {Step::Balance}, {Step::Discharge, Step::Rest, Step::Charge},
            {Step::Charge, Step::Rest, Step::Discharge, Step::Rest, Step::Charge}};
    m_plan = plans.at(int(settings.task));
    for (int cycle = 1; settings.task == Task::Format && cycle < settings.cycles; ++cycle)
        m_plan << Step::Rest << plans.at(int(Task::Format));
}

const Reading &Process::next()
{
    const bool first = m_lines++ == 0;
    if (!first || !m_settings.fromZero)
        for (int i = 0; i < m_settings.secondsPerLine(); ++i)
            second();
    measure();
    return m_reading;
}

Reading Process::ending(char letter) const
{
    Reading last = m_reading;
    last.endLetter = letter;
    return last;
}

Reading Process::trickle(int line)
{
    m_seconds += line == 0 ? 0 : 1;
    measure();
    m_reading.milliamps = line == 0 ? 0 : std::max(20, m_settings.effectiveCurrent() / 50);
    return m_reading;
}

/// One second of the device's time.
void Process::second()
{
    ++m_seconds;
    ++m_stepSeconds;
    setLevels();
    m_current = wantedCurrent();
    m_pack.step(m_current, m_settings.balance);
    m_energy += std::abs(m_current) / 3600;
    if (m_stepSeconds > rampSeconds)
        m_peak = std::max(m_peak, m_pack.voltage());
    if (!m_done && stepDone())
        nextStep();
    m_failed = m_failed || (m_settings.failAfter > 0 && m_seconds >= m_settings.failAfter);
    m_finished = m_finished || m_failed || (m_settings.duration > 0 && m_seconds >= m_settings.duration);
}

double Process::wantedCurrent() const
{
    const double ramp = std::min(1.0, double(m_stepSeconds) / rampSeconds);
    switch (m_plan.at(m_step)) {
    case Step::Charge:
        return std::min(chargeCurrent(), m_settings.effectiveCurrent() * ramp);
    case Step::Discharge:
        return m_done ? 0 : -m_settings.effectiveCurrent() * ramp;
    default:
        return 0;
    }
}

/// Constant current until the voltage limit, then what keeps to it.
double Process::chargeCurrent() const
{
    const bool limited = m_pack.chemistry().peakDrop <= 0;
    if (limited)
        return m_pack.limitCurrent(m_settings.balance > 0);
    return m_settings.effectiveCurrent() * (m_done ? keepingShare : 1);
}

/// The balancer loads every cell that rests above the lowest, the harder the
/// higher; not while the pack discharges.
void Process::setLevels()
{
    const bool active = m_settings.balance > 0 && m_plan.at(m_step) != Step::Discharge;
    const double lowest = m_pack.lowestRest();
    for (int i = 0; i < m_pack.cells().size(); ++i) {
        const double above = m_pack.cells().at(i).rest - lowest;
        m_pack.setLevel(i, active && above > 2 ? std::clamp(int(std::ceil((above - 2) / 1.5)), 1, 10) : 0);
    }
}

bool Process::stepDone()
{
    if (m_stepSeconds >= stepLimit)
        return true;
    switch (m_plan.at(m_step)) {
    case Step::Charge:
        return chargeDone();
    case Step::Discharge:
        return m_settings.balance > 0
            ? m_pack.lowestVoltage() <= m_pack.chemistry().empty
            : m_pack.voltage() <= m_pack.chemistry().empty * m_settings.cells || m_pack.lowestVoltage() <= 0;
    case Step::Balance:
        return m_stepSeconds >= settledSeconds && balanced();
    case Step::Rest:
        return m_stepSeconds >= restSeconds;
    }
    return true;
}

bool Process::chargeDone()
{
    if (m_stepSeconds <= 2 * rampSeconds)
        return false;
    if (m_pack.chemistry().peakDrop > 0)
        return m_pack.charge() > 0.9
            && m_pack.voltage() < m_peak - m_pack.chemistry().peakDrop * m_settings.cells;
    return m_current < m_settings.effectiveCurrent() / 20.0 && balanced();
}

bool Process::balanced() const
{
    const auto &cells = m_pack.cells();
    return std::all_of(cells.begin(), cells.end(), [](const Cell &cell) { return cell.level == 0; });
}

void Process::nextStep()
{
    if (m_step + 1 == m_plan.size()) {
        m_done = true;
        m_finished = !m_settings.endless;
        return;
    }
    ++m_step;
    m_stepSeconds = 0;
    m_peak = 0;
    if (m_plan.at(m_step) != Step::Rest)
        m_energy = 0;
}

void Process::measure()
{
    m_reading.model = m_settings.model;
    m_reading.task = m_settings.task;
    m_reading.charging = m_current > 0 || (m_current >= 0 && m_plan.at(m_step) != Step::Discharge);
    m_reading.chemistry = m_settings.chemistry;
    m_reading.cellCount = m_settings.cells;
    m_reading.seconds = m_seconds;
    m_reading.millivolts = measured(m_pack.voltage(), 0.7);
    m_reading.milliamps
        = std::abs(m_current) < 1 ? 0 : std::min(m_settings.mostCurrent(), measured(std::abs(m_current), 1));
    m_reading.tenthDegrees
        = m_settings.sensor ? std::clamp(measured(m_pack.temperature() * 10, 0.3), 1, 999) : 0;
    m_reading.milliampHours = int(m_energy);
    m_reading.coarseEnergy = m_settings.coarse && m_settings.model == Model::Varnel3;
    const bool missed = m_noise.bounded(1000) < m_settings.resistanceGaps || m_stepSeconds < rampSeconds
        || std::abs(m_current) < 10;
    m_reading.milliohms = missed ? 0 : steadyResistance();
    m_reading.cellData = m_settings.balance > 0;
    m_reading.balancingMilliamps = m_settings.balance;
    measureCells();
}

/// Does not waver between two neighbouring values.
int Process::steadyResistance()
{
    if (std::abs(m_pack.resistance() - m_resistance) > 0.8)
        m_resistance = std::max(1, measured(m_pack.resistance(), 0));
    return m_resistance;
}

void Process::measureCells()
{
    for (int i = 0; i < m_pack.cells().size(); ++i) {
        const Cell &cell = m_pack.cells().at(i);
        CellReading &reading = m_reading.cells[size_t(i)];
        reading.millivolts = std::min(9999, measured(cell.voltage, 0.5));
        reading.level = cell.level;
        reading.tenthMilliohms = std::clamp(measured(m_pack.resistance(cell) * 10, 1), 1, 9999);
    }
}

/// `value` with up to `noise` added or taken, never below 0.
int Process::measured(double value, double noise)
{
    return std::max(0, int(std::lround(value + (2 * m_noise.generateDouble() - 1) * noise)));
}

} // namespace sim
