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

// No record in the block of record `index` tells an end or resistances.
bool isPlain(const RecordList &records, int index)
{
    const int block = index / RecordList::blockSize;
    return block < records.packedBlocks() && records.packed(block).column(RecordColumns::Flag4).isAll('_')
        && records.packed(block).column(RecordColumns::ResistanceValid).isAll(0);
}

} // namespace

void SeriesStore::clear()
{
    *this = SeriesStore();
    m_revision = nextRevision();
}

void SeriesStore::begin(const Varnel3Data &record)
{
    m_appendedTo = nextRevision();
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
    Varnel3Data newest = record;
    complete(&newest);
    m_records.append(newest);
    noteResistances(newest);
    m_points.addNewest(m_records);
    m_end.addNewest(m_records);
    m_revision = nextRevision();
}

// The system is asked now and then: it takes as long as some hundred records.
void SeriesStore::makeRoom()
{
    constexpr int blocksBetweenLooks = 8;
    if (size() > 0 && size() % (blocksBetweenLooks * RecordList::blockSize) == 0)
        demandLiveMemory(qint64(blocksBetweenLooks) * qint64(RecordBlock::most()));
    m_points.makeRoom();
    m_records.makeRoom();
}

void SeriesStore::complete(Varnel3Data *record)
{
    m_balance.add(*record);
    if (m_device == Varnel3Data::Tandor)
        record->setTime(m_syntheticTime);
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
}

// A block of records stays in the processor's nearest memory while each series takes its figures.
bool SeriesStore::loadSome(int most)
{
    int loaded = m_points.size();
    const int last = loaded + qMin(most, size() - loaded);
    while (loaded < last) {
        const int end = m_points.loadBlock(m_records, last - loaded);
        if (!isPlain(m_records, loaded)) {
            for (int i = loaded; i < end; ++i) {
                m_end.addLoaded(m_records, i);
                if (m_records.figure(RecordColumns::ResistanceValid, i) != 0)
                    noteResistances(m_records[i]);
            }
        }
        loaded = end;
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
    if (m_records.isEmpty())
        return false;
    Varnel3Data newest = m_records.last();
    if (!newest.parseResistanceLine(QLatin1String(line)))
        return false;
    m_records.replaceLast(newest);
    noteResistances(newest);
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
    const int mode = m_records.figure(RecordColumns::Mode, 0);
    const bool hasCapacity = mode == Varnel3Data::Charge || mode == Varnel3Data::Discharge;
    capacity.mode = mode == Varnel3Data::Charge ? 'C' : mode == Varnel3Data::Discharge ? 'D' : ' ';
    capacity.energyNow = m_records.figure(RecordColumns::Energy, size() - 1);
    const bool marked = hasCapacity && size() >= EndMark::recordsForMark() && m_end.first() >= 0;
    capacity.energyAtMark
        = marked ? m_records.figure(RecordColumns::Energy, m_end.first()) : capacity.energyNow;
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
