#include "series/seriesstore.h"

#include "data/systemmemory.h"
#include "data/voltageslope.h"

#include <atomic>
#include <limits>

namespace {

// Of all stores, since one may take another's place.
quint64 nextRevision()
{
    static std::atomic<quint64> newest = 0;
    return ++newest;
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
    m_points.begin(record);
    m_syntheticTime = 0;
    m_balance.reset(record.time);
    m_end.begin(m_device);
}

void SeriesStore::append(const Varnel3Data &record)
{
    if (m_records.isEmpty())
        begin(record);
    else if (m_isLoaded)
        goOnLive(record);
    makeRoom();
    m_records.append(record);
    noteResistances(record);
    completeNewest();
    m_points.addNewest(m_records);
    m_end.addNewest(m_records);
    m_records.last().balancedMah = m_records.last().maxBalanceChargeMah();
    m_revision = nextRevision();
}

// The system is asked once a block: it takes as long as some hundred records.
void SeriesStore::makeRoom()
{
    constexpr int block = RecordList::blockSize;
    if (size() > 0 && size() % block == 0)
        demandLiveMemory(qint64(block) * qint64(sizeof(Varnel3Data)) + m_points.nextGrowth());
    m_records.makeRoom();
    m_points.makeRoom();
}

void SeriesStore::completeNewest()
{
    Varnel3Data &newest = m_records.last();
    m_balance.add(newest);
    if (m_device == Varnel3Data::Tandor)
        newest.setTime(m_syntheticTime);
    m_syntheticTime = int(
        qMin<qint64>(qint64(m_syntheticTime) + Varnel3Data::balancerPeriod, std::numeric_limits<int>::max()));
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
    m_points.reserve(size());
}

// A block of records stays in the processor's nearest memory while each series takes its figures.
bool SeriesStore::loadSome(int most)
{
    int loaded = m_points.size();
    const int last = loaded + qMin(most, size() - loaded);
    while (loaded < last) {
        const int end = m_points.loadBlock(m_records, last - loaded);
        for (; loaded < end; ++loaded) {
            m_end.addLoaded(m_records, loaded);
            noteResistances(m_records[loaded]);
        }
    }
    return last < size();
}

double SeriesStore::loadProgress() const
{
    return isEmpty() ? 1.0 : double(m_points.size()) / size();
}

// What append() sums up takes up where the file has ended.
void SeriesStore::goOnLive(const Varnel3Data &record)
{
    m_isLoaded = false;
    m_points.goOnLive();
    m_syntheticTime
        = int(qMin<qint64>(qint64(size()) * Varnel3Data::balancerPeriod, std::numeric_limits<int>::max()));
    m_end.goOn(m_records);
    m_balance.goOn(m_records);
    if (m_device == Varnel3Data::Tandor)
        m_balance.goOnFrom(record.time);
}

bool SeriesStore::applyResistanceLine(const QByteArray &line)
{
    if (m_records.isEmpty() || !m_records.last().parseResistanceLine(QLatin1String(line)))
        return false;
    noteResistances(m_records.last());
    m_revision = nextRevision();
    return true;
}

// A device measures them now and then, and gives 0 for what it could not.
void SeriesStore::noteResistances(const Varnel3Data &record)
{
    if (!record.resistanceValid)
        return;
    for (int i = 0; i < Varnel3Data::maxCells; ++i) {
        if (record.cells[i].resistance > 0)
            m_resistances[i] = record.cells[i].resistance;
    }
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
    const bool marked = hasCapacity && size() >= EndMark::recordsForMark() && m_end.first() >= 0;
    capacity.energyAtMark = marked ? m_records[m_end.first()].energy : capacity.energyNow;
    return capacity;
}

Varnel3Data SeriesStore::record(int index) const
{
    Varnel3Data record = m_records[index];
    if (index >= m_end.markedFrom())
        record.flag4 = EndMark::letter;
    record.voltageSlope = slopeAt(index);
    return record;
}

int SeriesStore::slopeAt(int index) const
{
    if (index <= firstResistance()) // the first one has nothing to differ from
        return noVoltageSlope;
    constexpr double limit = std::numeric_limits<int>::max();
    return qRound(qBound(-limit, series(Dv)[index], limit));
}

bool SeriesStore::newestLacksResistance() const
{
    const int newest = size() - 1;
    return newest > 0 && m_records[newest].cells[0].resistance == 0.0
        && m_records[newest - 1].cells[0].resistance > 0.0;
}
