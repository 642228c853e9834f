#include "series/derivedpoints.h"

#include "data/records/recordlist.h"
#include "data/systemmemory.h"
#include "series/extremes.h"
#include "series/seriesfigures.h"

#include <algorithm>

namespace {

using Columns = RecordColumns;

constexpr int dvWeight = 12; // of the dV average; also the steps of 5 s in a minute
constexpr int length = RecordList::blockSize;
constexpr int recordsBetweenLooks = 32768; // of a file, at the memory that is left

static_assert(length == KeptPoints::length, "points lie in the blocks of their records");
static_assert(length > SeriesKinds::firstResistance() + 1, "all points before it are in the first block");

bool allHaveCells(const RecordList &records, int block)
{
    return records.packed(block).column(Columns::Flag5).isAll('B');
}

} // namespace

void DerivedPoints::begin(const Varnel3Data &record)
{
    m_device = record.device;
    m_hasCells = record.hasBalancingData();
    m_cellCount = m_hasCells ? record.cellsPresent() : 0;
    m_temperatureSum = qint64(record.temperature) * 4;
}

int DerivedPoints::size(int kind) const
{
    return kind == Resistance ? m_resistancePoints : kind < kindsInUse() ? m_size : 0;
}

void DerivedPoints::makeRoom()
{
    if (isBlockFull())
        makeBlockRoom(BlockArena::Slow);
}

void DerivedPoints::makeBlockRoom(BlockArena::Growth growth)
{
    m_kept.makeRoom(growth);
    m_pyramid.makeRoom(kindsInUse(), growth);
}

void DerivedPoints::addNewest(const RecordList &records)
{
    if (isBlockFull())
        packBlock(records);
    addLiveResistance(records);
    addFigures(records, 1);
}

int DerivedPoints::loadBlock(const RecordList &records, int most)
{
    if (m_size % recordsBetweenLooks == 0)
        demandMemory();
    if (isBlockFull()) {
        makeBlockRoom(BlockArena::Fast);
        packBlock(records);
    }
    const int first = m_size;
    const int end = qMin((first / length + 1) * length, first + most);
    addLoadedResistances(records, end - first);
    addFigures(records, end - first);
    return m_size;
}

// Those of the next `count` records of a block. Each point waits for the one before it, and so the series
// wait side by side.
void DerivedPoints::addFigures(const RecordList &records, int count)
{
    const int block = m_size / length;
    const int first = m_size % length;
    int times[length];
    int temperatures[length];
    int voltages[length];
    records.numbers(Columns::Time, block).copy(first, count, times);
    records.numbers(Columns::Temperature, block).copy(first, count, temperatures);
    records.numbers(Columns::Voltage, block).copy(first, count, voltages);
    const int before = std::max(0, m_size - 1);
    int lastTime = records.figure(Columns::Time, before);
    qint64 lastVoltage = records.figure(Columns::Voltage, before);
    KeptPoints::Newest &newest = m_kept.newest();
    for (int i = 0; i < count; ++i) {
        m_timeMonotone &= times[i] >= lastTime;
        lastTime = times[i];
        m_temperatureSum = m_temperatureSum - m_temperatureSum / 4 + temperatures[i]; // the first stays
        newest.temperatures[first + i] = int(m_temperatureSum / 4);
        if (m_size + i > firstResistance())
            m_dvSum = m_dvSum - m_dvSum / dvWeight + double((voltages[i] - lastVoltage) * dvWeight);
        newest.slopes[first + i] = m_size + i > firstResistance() ? m_dvSum / dvWeight : 0.0;
        lastVoltage = voltages[i];
    }
    m_size += count;
}

// The blocks before it are full, and so is this one: a record comes that lies behind.
void DerivedPoints::packBlock(const RecordList &records)
{
    const int block = m_kept.blocks();
    m_kept.packNewest();
    const bool isTold = allHaveCells(records, block);
    m_cellsTold = m_cellsTold && isTold;
    if (m_hasCells)
        m_kept.newest().heardBefore = CellPoints::heardAt(records, m_size - 1, m_kept.heardBefore(block));
    for (int begin = block * length; begin < (block + 1) * length; begin += ExtremesPyramid::step) {
        Interval ranges[kindCount];
        for (int kind = 0; kind < kindsInUse(); ++kind)
            ranges[kind] = rangeOf(records, kind, begin, isTold);
        m_pyramid.add(ranges, kindsInUse());
    }
}

// Of the step that begins there; isTold if each record of its block tells cells.
Interval DerivedPoints::rangeOf(const RecordList &records, int kind, int begin, bool isTold) const
{
    constexpr int count = ExtremesPyramid::step;
    const int block = begin / length;
    const int first = begin % length;
    if (kind == Dv)
        return extremesOf(m_kept.slopes(block), first, first + count);
    if (kind == CellDelta || (kind >= CellMin && !isTold)) {
        double points[count];
        CellPoints::copy(records, kind, begin, count, m_kept.heardBefore(block), points);
        return extremesOf(points, 0, count);
    }
    const SeriesFigure figure = SeriesFigure::of(kind);
    const NarrowNumbers numbers
        = figure.column < 0 ? m_kept.figures(kind, block) : records.numbers(figure.column, block);
    const NarrowNumbers::Range range = numbers.extremes(first, first + count);
    return {range.low / figure.unit, range.high / figure.unit};
}

void DerivedPoints::addResistance(qint64 point)
{
    m_kept.newest().resistances[m_resistancePoints % length] = int(point);
    ++m_resistancePoints;
}

// The points before the first have its value.
void DerivedPoints::fillFront()
{
    int *const points = m_kept.newest().resistances;
    std::fill_n(points, firstResistance(), points[firstResistance()]);
}

// The running value starts with the record before its first point.
void DerivedPoints::seedLiveResistance(const RecordList &records)
{
    const int resistance = records.figure(Columns::InternalResistance, firstResistance() - 1);
    m_resistance.seed(qint64(resistance) * 4);
    addResistance(resistance);
}

void DerivedPoints::addLiveResistance(const RecordList &records)
{
    const int index = records.size() - 1;
    if (m_device != Varnel3Data::Varnel3) {
        addResistance(0);
    } else if (index < firstResistance()) {
        addResistance(0);
        if (index == firstResistance() - 1)
            seedLiveResistance(records);
    } else if (index == firstResistance()) {
        if (m_resistancePoints == index) // the records before came from a file
            seedLiveResistance(records);
        fillFront();
    } else {
        addResistance(m_resistance.addNewest(records));
    }
}

// Those of the next `count` records of a block.
void DerivedPoints::addLoadedResistances(const RecordList &records, int count)
{
    int values[length];
    records.numbers(Columns::InternalResistance, m_size / length).copy(m_size % length, count, values);
    for (int i = 0; i < count; ++i) {
        const int index = m_size + i;
        if (index < firstResistance()) {
            addResistance(0);
        } else if (index == firstResistance()) {
            addResistance(values[i]);
            fillFront();
            m_loadedResistanceSum = qint64(values[i]) * 4;
        } else {
            const qint64 value
                = values[i] != 0 ? values[i] : ResistanceFold::valueOf(records, index, records.size() - 1);
            m_loadedResistanceSum = m_loadedResistanceSum - m_loadedResistanceSum / 4 + value;
            addResistance(m_loadedResistanceSum / 4);
        }
    }
}

void DerivedPoints::goOnLive()
{
    m_resistance.seed(m_loadedResistanceSum);
}
