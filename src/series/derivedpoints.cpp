#include "series/derivedpoints.h"

#include "data/recordlist.h"
#include "data/systemmemory.h"

#include <algorithm>

namespace {

constexpr int dvWeight = 12; // of the dV average; also the steps of 5 s in a minute

// The series that are a record's own figures: calls add(kind, figure of a record).
template <typename Add>
void eachBaseFigure(const Add &add)
{
    add(SeriesKinds::Time, [](const Varnel3Data &record) { return double(record.time); });
    add(SeriesKinds::Voltage, [](const Varnel3Data &record) { return record.voltage / 1000.0; });
    add(SeriesKinds::Current, [](const Varnel3Data &record) { return record.current / 1000.0; });
    add(SeriesKinds::Energy, [](const Varnel3Data &record) { return double(record.energy); });
}

// The same of its cells, of which `count` have a series.
template <typename Add>
void eachCellFigure(int count, const Add &add)
{
    add(SeriesKinds::CellMin, [](const Varnel3Data &record) { return record.cellMin / 1000.0; });
    add(SeriesKinds::CellMax, [](const Varnel3Data &record) { return record.cellMax / 1000.0; });
    add(SeriesKinds::CellAverage, [](const Varnel3Data &record) { return record.cellAverage / 1000.0; });
    for (int i = 0; i < count; ++i)
        add(SeriesKinds::Cell1 + i,
            [i](const Varnel3Data &record) { return record.cells[i].voltage / 1000.0; });
}

} // namespace

void DerivedPoints::begin(const Varnel3Data &record)
{
    m_device = record.device;
    m_hasCells = record.hasBalancingData();
    m_cellCount = m_hasCells ? record.cellsPresent() : 0;
}

void DerivedPoints::addNewest(const RecordList &records)
{
    const int index = records.size() - 1;
    const Varnel3Data &record = records[index];
    eachBaseFigure([&](int kind, const auto &figure) { m_series[kind].append(figure(record)); });
    noteTime(index);
    addTemperature(record);
    addLiveResistance(records);
    addDv(records, index);
    addCellPoints(record);
}

void DerivedPoints::makeRoom()
{
    constexpr int most = 2; // of one series: what a live resistance begins with
    std::for_each(m_series, m_series + kindsInUse(), [](PlotSeries &series) { series.makeRoom(most); });
}

// A series grows by half of what it holds.
qint64 DerivedPoints::nextGrowth() const
{
    return qint64(kindsInUse()) * size() / 2 * qint64(sizeof(double));
}

void DerivedPoints::noteTime(int index)
{
    const PlotSeries &times = m_series[Time];
    m_timeMonotone = m_timeMonotone && (index == 0 || times[index] >= times[index - 1]);
}

void DerivedPoints::addTemperature(const Varnel3Data &record)
{
    PlotSeries &points = m_series[Temperature];
    m_temperatureSum = points.isEmpty() ? qint64(record.temperature) * 4
                                        : m_temperatureSum - m_temperatureSum / 4 + record.temperature;
    points.append(points.isEmpty() ? record.temperature / 10.0 : double(m_temperatureSum / 4) / 10.0);
}

// The running value starts with the record before its first point.
void DerivedPoints::seedLiveResistance(const RecordList &records)
{
    const int resistance = records[firstResistance() - 1].internalResistance;
    m_resistance.seed(qint64(resistance) * 4);
    m_series[Resistance].restartExtremes();
    m_series[Resistance].append(resistance);
}

void DerivedPoints::addLiveResistance(const RecordList &records)
{
    PlotSeries &points = m_series[Resistance];
    const int index = records.size() - 1;
    if (m_device != Varnel3Data::Varnel3) {
        points.append(0.0);
    } else if (index < firstResistance()) {
        points.append(0.0);
        if (index == firstResistance() - 1)
            seedLiveResistance(records);
    } else if (index == firstResistance()) {
        if (points.size() == index) // the records before came from a file
            seedLiveResistance(records);
        points.fillFront(firstResistance(), points[firstResistance()]);
    } else {
        points.append(double(m_resistance.addNewest(records)));
    }
}

void DerivedPoints::addDv(const RecordList &records, int index)
{
    if (index <= firstResistance()) {
        m_series[Dv].append(0.0);
        return;
    }
    const qint64 rise = qint64(records[index].voltage) - records[index - 1].voltage;
    m_dvSum = m_dvSum - m_dvSum / dvWeight + double(rise * dvWeight);
    m_series[Dv].append(m_dvSum / dvWeight);
}

void DerivedPoints::addCellPoints(const Varnel3Data &record)
{
    if (!m_hasCells)
        return;
    if (!record.hasBalancingData()) { // the cells stand still while nothing is heard of them
        for (int kind = CellMin; kind < Cell1 + m_cellCount; ++kind)
            m_series[kind].append(m_series[kind].last());
        return;
    }
    eachCellFigure(m_cellCount, [&](int kind, const auto &figure) { m_series[kind].append(figure(record)); });
    m_series[CellDelta].append(m_series[CellMax].last() - m_series[CellMin].last());
}

// One block for all series of a long file; series of a short one take what they need.
void DerivedPoints::reserve(int records)
{
    const int kinds = kindsInUse();
    const size_t size = size_t(kinds) * size_t(records) * sizeof(double);
    if (size < 4 * LargeBlock::pageSize) {
        std::for_each(m_series, m_series + kinds, [records](PlotSeries &series) { series.reserve(records); });
        return;
    }
    demandMemory(qint64(size));
    m_room = LargeBlock(size);
    auto *room = static_cast<double *>(m_room.data());
    for (int kind = 0; kind < kinds; ++kind, room += records)
        m_series[kind].useRoom(room, records);
}

int DerivedPoints::loadBlock(const RecordList &records, int most)
{
    const int first = size();
    const int end = qMin((first / PlotSeries::blockSize + 1) * PlotSeries::blockSize, first + most);
    loadFigures(&records[first], end - first);
    for (int i = first; i < end; ++i) {
        noteTime(i);
        addTemperature(records[i]);
        addDv(records, i);
        addLoadedResistance(records, i);
    }
    return end;
}

// The same points as of records one by one, of records that lie side by side.
void DerivedPoints::loadFigures(const Varnel3Data *records, int count)
{
    static_assert(RecordList::blockSize % PlotSeries::blockSize == 0, "records lie side by side");
    const auto add = [&](int kind, const auto &figure) {
        m_series[kind].appendRun(count, [&](int i) { return figure(records[i]); });
    };
    eachBaseFigure(add);
    if (!m_hasCells)
        return;
    const auto hasCells = [](const Varnel3Data &record) { return record.hasBalancingData(); };
    if (!std::all_of(records, records + count, hasCells)) {
        std::for_each(records, records + count, [this](const Varnel3Data &record) { addCellPoints(record); });
        return;
    }
    eachCellFigure(m_cellCount, add);
    const double *const highest = m_series[CellMax].end() - count;
    const double *const lowest = m_series[CellMin].end() - count;
    m_series[CellDelta].appendRun(count, [&](int i) { return highest[i] - lowest[i]; });
}

void DerivedPoints::addLoadedResistance(const RecordList &records, int index)
{
    PlotSeries &points = m_series[Resistance];
    if (index < firstResistance()) {
        points.append(0.0);
    } else if (index == firstResistance()) {
        const int first = records[index].internalResistance;
        points.restartExtremes();
        points.append(first);
        points.fillFront(firstResistance(), first);
        m_loadedResistanceSum = qint64(first) * 4;
    } else {
        m_loadedResistanceSum = m_loadedResistanceSum - m_loadedResistanceSum / 4
            + ResistanceFold::valueOf(records, index, records.size() - 1);
        points.append(double(m_loadedResistanceSum / 4));
    }
}

void DerivedPoints::goOnLive()
{
    m_resistance.seed(m_loadedResistanceSum);
}
