#include "logbook/logbookfigures.h"

#include "data/saturated.h"
#include "series/seriesstore.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace {

constexpr double secondsPerHour = 3600.0;
constexpr int tallest = 255; // of the small picture

/// What lies beyond all int is told as the last one.
int rounded(double value)
{
    constexpr double most = std::numeric_limits<int>::max();
    return qRound(qBound(-most, value, most));
}

/// Wh between two neighbours; nothing where the clock stands or runs backwards.
double energyBetween(const SeriesStore &store, int index)
{
    const PlotSeries &time = store.series(SeriesStore::Time);
    const PlotSeries &voltage = store.series(SeriesStore::Voltage);
    const PlotSeries &current = store.series(SeriesStore::Current);
    const double before = voltage[index - 1] * current[index - 1];
    const double after = voltage[index] * current[index];
    const double seconds = qMax(0.0, time[index] - time[index - 1]);
    return (before + after) / 2.0 * seconds / secondsPerHour;
}

/// The place between records 0 and `last` that is `share` of the way, by time where the clock allows.
double placeAt(const SeriesStore &store, int last, double share)
{
    const PlotSeries &time = store.series(SeriesStore::Time);
    if (!store.isTimeMonotone() || time[0] >= time[last])
        return share * last;
    const double wanted = time[0] + share * (time[last] - time[0]);
    const int after = time.firstNot(0, [wanted](double earlier) { return earlier <= wanted; });
    const int index = qMin(after, last) - 1; // the first is not above `wanted`
    const double span = time[index + 1] - time[index];
    return span > 0.0 ? index + qMin(1.0, (wanted - time[index]) / span) : index;
}

QByteArray curveOf(const SeriesStore &store, int last)
{
    constexpr int points = LogbookFigures::curvePoints;
    if (last < 1)
        return QByteArray();
    const PlotSeries &voltage = store.series(SeriesStore::Voltage);
    std::array<double, size_t(points)> values = {};
    int i = 0;
    for (double &value : values) {
        const double place = placeAt(store, last, double(i++) / (points - 1));
        const int index = qMin(int(place), last - 1);
        value = voltage[index] + (voltage[index + 1] - voltage[index]) * (place - index);
    }
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const double scale = *high > *low ? tallest / (*high - *low) : 0.0;
    QByteArray curve;
    for (const double value : values)
        curve += char(qRound((value - *low) * scale));
    return curve;
}

} // namespace

bool LogbookFigures::hasCellResistances() const
{
    return std::any_of(cellResistances.begin(), cellResistances.end(), [](float ohm) { return ohm > 0.0F; });
}

bool LogbookFigures::operator==(const LogbookFigures &other) const
{
    const auto all = [](const LogbookFigures &f) {
        return std::tie(f.records, f.device, f.mode, f.cellType, f.cells, f.duration, f.charge, f.energy,
            f.startVoltage, f.endVoltage, f.highestTemperature, f.resistance, f.cellResistances, f.spread,
            f.lowestCell, f.end, f.curve);
    };
    return all(*this) == all(other);
}

LogbookFigures LogbookFigures::of(const SeriesStore &store)
{
    LogbookReckoning reckoning(store);
    reckoning.goOn(store.size());
    return reckoning.figures();
}

LogbookFigures LogbookFigures::ofFirst(const Varnel3Data &record)
{
    LogbookFigures figures;
    figures.records = 1;
    figures.device = record.device;
    figures.mode = record.mode;
    figures.cellType = record.cellType;
    figures.cells = record.cellsPresent();
    figures.startVoltage = record.voltage;
    figures.endVoltage = record.voltage;
    return figures;
}

LogbookReckoning::LogbookReckoning(const SeriesStore &store)
    : m_store(store)
{
    if (!m_store.isEmpty())
        m_figures = LogbookFigures::ofFirst(m_store.record(0));
}

bool LogbookReckoning::goOn(int most)
{
    const int end = m_next + qMin(most, m_store.size() - m_next);
    for (; m_next < end; ++m_next)
        addRecord(m_next);
    if (m_next < m_store.size())
        return true;
    finish();
    return false;
}

// What ends the process is looked for in all records, what comes of it up to its end.
void LogbookReckoning::addRecord(int index)
{
    const Varnel3Data record = m_store.record(index);
    if (m_figures.end == Varnel3Data::NoEnd)
        m_figures.end = record.processEnd();
    if (m_last >= 0)
        return;
    if (index > 0)
        m_figures.energy += energyBetween(m_store, index);
    m_figures.highestTemperature
        = index == 0 ? record.temperature : qMax(m_figures.highestTemperature, record.temperature);
    if (record.internalResistance > 0)
        m_measured = index;
    const bool marked = record.flag4 != '_' && m_store.size() >= EndMark::recordsForMark()
        && m_store.capacity().mode != ' ';
    if (marked || record.processEnd() != Varnel3Data::NoEnd)
        m_last = index;
}

void LogbookReckoning::finish()
{
    m_figures.records = m_store.size();
    if (m_store.isEmpty())
        return;
    if (m_last < 0)
        m_last = m_store.size() - 1;
    const Varnel3Data last = m_store.record(m_last);
    const PlotSeries &time = m_store.series(SeriesStore::Time);
    m_figures.duration = rounded(qMax(0.0, time[m_last] - time[0]));
    m_figures.charge = m_store.capacity().energyAtMark;
    m_figures.endVoltage = last.voltage;
    if (m_measured >= 0)
        m_figures.resistance = m_measured >= SeriesStore::firstResistance()
            ? rounded(m_store.series(SeriesStore::Resistance)[m_measured])
            : m_store.record(m_measured).internalResistance;
    for (int cell = 0; cell < m_figures.cells; ++cell)
        m_figures.cellResistances[size_t(cell)] = float(m_store.knownResistance(cell));
    takeCells(last);
    m_figures.curve = curveOf(m_store, m_last);
}

void LogbookReckoning::takeCells(const Varnel3Data &last)
{
    const int count = last.cellsPresent();
    if (!last.hasCellData() || count < 1)
        return;
    const CellData *const lowest = std::min_element(last.cells, last.cells + count,
        [](const CellData &a, const CellData &b) { return a.voltage < b.voltage; });
    m_figures.spread = saturated(qint64(last.cellMax) - last.cellMin);
    m_figures.lowestCell = int(lowest - last.cells);
}
