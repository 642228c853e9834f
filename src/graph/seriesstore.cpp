#include "graph/seriesstore.h"

#include "data/systemmemory.h"

#include <algorithm>
#include <atomic>
#include <limits>

namespace {

constexpr int balancerPeriod = 5; // s between two lines of a balancer, which sends no time
constexpr int dvWeight = 12; // of the dV average; also the steps of 5 s in a minute
constexpr int recordsForMark = 6; // fewer records than these have no end mark

// The series that are a record's own figures: calls add(kind, figure of a record).
template <typename Add>
void eachBaseFigure(const Add &add)
{
    add(SeriesStore::Time, [](const Varnel3Data &record) { return double(record.time); });
    add(SeriesStore::Voltage, [](const Varnel3Data &record) { return record.voltage / 1000.0; });
    add(SeriesStore::Current, [](const Varnel3Data &record) { return record.current / 1000.0; });
    add(SeriesStore::Energy, [](const Varnel3Data &record) { return double(record.energy); });
}

// The same of its cells, of which `count` have a series.
template <typename Add>
void eachCellFigure(int count, const Add &add)
{
    add(SeriesStore::CellMin, [](const Varnel3Data &record) { return record.cellMin / 1000.0; });
    add(SeriesStore::CellMax, [](const Varnel3Data &record) { return record.cellMax / 1000.0; });
    add(SeriesStore::CellAverage, [](const Varnel3Data &record) { return record.cellAverage / 1000.0; });
    for (int i = 0; i < count; ++i)
        add(SeriesStore::Cell1 + i,
            [i](const Varnel3Data &record) { return record.cells[i].voltage / 1000.0; });
}

// Of all stores, since one may take another's place.
quint64 nextRevision()
{
    static std::atomic<quint64> newest = 0;
    return ++newest;
}

bool sendsNoEndLetter(int device)
{
    return device == Varnel3Data::Varnel2Plus || device == Varnel3Data::Varnel2;
}

} // namespace

void SeriesStore::clear()
{
    *this = SeriesStore();
    m_revision = nextRevision();
}

void SeriesStore::begin(const Varnel3Data &record)
{
    m_device = record.device;
    m_hasCells = record.flag5 == 'B';
    m_cellCount = m_hasCells ? record.cellsPresent() : 0;
    m_syntheticTime = 0;
    m_balance.reset(record.time);
    m_endMarked = false;
}

void SeriesStore::append(const Varnel3Data &record)
{
    if (m_records.isEmpty())
        begin(record);
    else if (m_isLoaded)
        goOnLive();
    m_records.append(record);
    completeNewest();
    const Varnel3Data &newest = m_records.last();
    addBasePoints(newest);
    addLiveResistance();
    addDv(size() - 1);
    addCellPoints(newest);
    markEnd();
    m_records.last().balancedMah = newest.maxBalanceChargeMah();
    m_revision = nextRevision();
}

void SeriesStore::completeNewest()
{
    Varnel3Data &newest = m_records.last();
    m_balance.add(newest);
    if (m_device == Varnel3Data::Tandor)
        newest.setTime(m_syntheticTime);
    m_syntheticTime
        = int(qMin<qint64>(qint64(m_syntheticTime) + balancerPeriod, std::numeric_limits<int>::max()));
}

void SeriesStore::addBasePoints(const Varnel3Data &record)
{
    addTemperature(record);
    eachBaseFigure([&](int kind, const auto &figure) { m_series[kind].append(figure(record)); });
    noteTime(size() - 1);
}

void SeriesStore::noteTime(int index)
{
    const PlotSeries &times = m_series[Time];
    m_timeMonotone = m_timeMonotone && (index == 0 || times[index] >= times[index - 1]);
}

void SeriesStore::addTemperature(const Varnel3Data &record)
{
    PlotSeries &points = m_series[Temperature];
    m_temperatureSum = points.isEmpty() ? qint64(record.temperature) * 4
                                        : m_temperatureSum - m_temperatureSum / 4 + record.temperature;
    points.append(points.isEmpty() ? record.temperature / 10.0 : double(m_temperatureSum / 4) / 10.0);
}

// The running value starts with the record before its first point.
void SeriesStore::seedLiveResistance()
{
    const int resistance = m_records[firstResistance() - 1].internalResistance;
    m_resistance.seed(qint64(resistance) * 4);
    m_series[Resistance].restartExtremes();
    m_series[Resistance].append(resistance);
}

void SeriesStore::addLiveResistance()
{
    PlotSeries &points = m_series[Resistance];
    const int index = size() - 1;
    if (m_device != Varnel3Data::Varnel3) {
        points.append(0.0);
    } else if (index < firstResistance()) {
        points.append(0.0);
        if (index == firstResistance() - 1)
            seedLiveResistance();
    } else if (index == firstResistance()) {
        if (points.size() == index) // the records before came from a file
            seedLiveResistance();
        points.fillFront(firstResistance(), points[firstResistance()]);
    } else {
        points.append(double(m_resistance.addNewest(m_records)));
    }
}

void SeriesStore::addLoadedResistance(int index)
{
    PlotSeries &points = m_series[Resistance];
    if (index < firstResistance()) {
        points.append(0.0);
    } else if (index == firstResistance()) {
        const int first = m_records[index].internalResistance;
        points.restartExtremes();
        points.append(first);
        points.fillFront(firstResistance(), first);
        m_loadedResistanceSum = qint64(first) * 4;
    } else {
        m_loadedResistanceSum = m_loadedResistanceSum - m_loadedResistanceSum / 4
            + ResistanceFold::valueOf(m_records, index, size() - 1);
        points.append(double(m_loadedResistanceSum / 4));
    }
}

void SeriesStore::addDv(int index)
{
    if (index <= firstResistance()) {
        m_series[Dv].append(0.0);
        return;
    }
    const qint64 rise = qint64(m_records[index].voltage) - m_records[index - 1].voltage;
    m_dvSum = m_dvSum - m_dvSum / dvWeight + double(rise * dvWeight);
    m_series[Dv].append(m_dvSum / dvWeight);
}

void SeriesStore::addCellPoints(const Varnel3Data &record)
{
    if (!m_hasCells)
        return;
    if (record.flag5 != 'B') { // the cells stand still while nothing is heard of them
        for (int kind = CellMin; kind < Cell1 + m_cellCount; ++kind)
            m_series[kind].append(m_series[kind].last());
        return;
    }
    eachCellFigure(m_cellCount, [&](int kind, const auto &figure) { m_series[kind].append(figure(record)); });
    m_series[CellDelta].append(m_series[CellMax].last() - m_series[CellMin].last());
}

void SeriesStore::markEnd()
{
    const int newest = size() - 1;
    if (!sendsNoEndLetter(m_device)) {
        findMark(newest);
        return;
    }
    if (m_endMarked) {
        m_records[newest].flag4 = 'E';
    } else if (size() >= recordsForMark && m_records[newest].current != 0
        && m_records[newest - 1].current == 0 && m_records[newest - 2].current != 0) {
        m_endMarked = true;
        m_records[newest - 1].flag4 = 'E';
        m_records[newest].flag4 = 'E';
        findMark(newest - 1);
    }
    findMark(newest);
}

void SeriesStore::findMark(int index)
{
    if (m_markedRecord < 0 && m_records[index].flag4 != '_')
        m_markedRecord = index;
}

void SeriesStore::load(RecordList records)
{
    beginLoad(std::move(records));
    loadSome(size());
}

void SeriesStore::beginLoad(RecordList records)
{
    clear();
    m_records = std::move(records);
    if (m_records.isEmpty())
        return;
    m_isLoaded = true;
    begin(m_records.first());
    makeRoom(size());
}

// A block of records stays in the processor's nearest memory while each series takes its figures.
bool SeriesStore::loadSome(int most)
{
    const int first = m_series[Time].size();
    const int last = first + qMin(most, size() - first);
    for (int begin = first; begin < last;) {
        const int end = qMin((begin / PlotSeries::blockSize + 1) * PlotSeries::blockSize, last);
        loadFigures(begin, end);
        for (; begin < end; ++begin) {
            noteTime(begin);
            addTemperature(m_records[begin]);
            addDv(begin);
            addLoadedResistance(begin);
            findMark(begin);
        }
    }
    return last < size();
}

// What append() sums up takes up where the file has ended.
void SeriesStore::goOnLive()
{
    m_isLoaded = false;
    m_resistance.seed(m_loadedResistanceSum);
    m_syntheticTime = int(qMin<qint64>(qint64(size()) * balancerPeriod, std::numeric_limits<int>::max()));
    m_endMarked = m_records.last().flag4 == 'E';
    m_balance.goOn(m_records);
}

double SeriesStore::loadProgress() const
{
    return isEmpty() ? 1.0 : double(m_series[Time].size()) / size();
}

// One block for all series of a long file; series of a short one take what they need.
void SeriesStore::makeRoom(int records)
{
    const int kinds = m_hasCells ? Cell1 + m_cellCount : int(CellMin);
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

// The same points as of records one by one, of records that lie side by side.
void SeriesStore::loadFigures(int begin, int end)
{
    static_assert(RecordList::blockSize % PlotSeries::blockSize == 0, "records lie side by side");
    const Varnel3Data *const records = &m_records[begin];
    const int count = end - begin;
    const auto add = [&](int kind, const auto &figure) {
        m_series[kind].appendRun(count, [&](int i) { return figure(records[i]); });
    };
    eachBaseFigure(add);
    if (!m_hasCells)
        return;
    const auto hasCells = [](const Varnel3Data &record) { return record.flag5 == 'B'; };
    if (!std::all_of(records, records + count, hasCells)) {
        std::for_each(records, records + count, [this](const Varnel3Data &record) { addCellPoints(record); });
        return;
    }
    eachCellFigure(m_cellCount, add);
    const double *const highest = m_series[CellMax].end() - count;
    const double *const lowest = m_series[CellMin].end() - count;
    m_series[CellDelta].appendRun(count, [&](int i) { return highest[i] - lowest[i]; });
}

bool SeriesStore::applyResistanceLine(const QString &line)
{
    if (m_records.isEmpty() || !m_records.last().parseResistanceLine(line))
        return false;
    m_revision = nextRevision();
    return true;
}

SeriesStore::Capacity SeriesStore::capacity() const
{
    Capacity capacity;
    if (isEmpty())
        return capacity;
    const int mode = m_records.first().mode;
    const bool hasCapacity = mode == Varnel3Data::Charge || mode == Varnel3Data::Discharge;
    capacity.mode = mode == Varnel3Data::Charge ? 'C' : mode == Varnel3Data::Discharge ? 'D' : ' ';
    capacity.energyNow = m_records.last().energy;
    const bool marked = hasCapacity && size() >= recordsForMark && m_markedRecord >= 0;
    capacity.energyAtMark = marked ? m_records[m_markedRecord].energy : capacity.energyNow;
    return capacity;
}

bool SeriesStore::newestLacksResistance() const
{
    const int newest = size() - 1;
    return newest > 0 && m_records[newest].cells[0].resistance == 0.0
        && m_records[newest - 1].cells[0].resistance > 0.0;
}
