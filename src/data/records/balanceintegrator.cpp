#include "data/records/balanceintegrator.h"

#include "data/records/recordlist.h"
#include "data/saturated.h"

#include <algorithm>

namespace {

// Far beyond any recording, and small enough that products and their sums stay within 64 bits.
constexpr qint64 mostLoad = Q_INT64_C(1) << 31; // per cent x mA
constexpr qint64 mostCharge = Q_INT64_C(1) << 61;

qint64 chargeOf(int balance, int balancingCurrent, qint64 seconds)
{
    const qint64 load = qBound(-mostLoad, qint64(balance) * balancingCurrent, mostLoad);
    return qBound(-mostCharge, load * seconds, mostCharge);
}

// What devices send: no cell's part can leave its bounds, whatever its balance.
bool isPlain(const Varnel3Data &record, qint64 seconds)
{
    constexpr quint64 mostSeconds = 100000;
    constexpr unsigned mostCurrent = 1000; // mA
    return quint64(seconds) <= mostSeconds && unsigned(record.ballansingCurrent) <= mostCurrent;
}

} // namespace

void BalanceIntegrator::reset(int startTime)
{
    std::fill(std::begin(m_charge), std::end(m_charge), 0);
    m_lastTime = startTime;
}

void BalanceIntegrator::goOn(const RecordList &records)
{
    reset(records.figure(RecordColumns::Time, 0));
    bool isNewest = true; // of those with balancing data
    int known = 0; // cells
    for (int i = records.size() - 1; i >= 0 && known < Varnel3Data::maxCells; --i) {
        if (records.figure(RecordColumns::Flag5, i) != 'B')
            continue;
        const Varnel3Data record = records[i];
        m_lastTime = isNewest ? record.time : m_lastTime;
        isNewest = false;
        for (; known < record.cellsPresent(); ++known)
            m_charge[known] = record.cells[known].balanceCharge;
    }
}

void BalanceIntegrator::add(Varnel3Data &record)
{
    if (record.hasBalancingData()) {
        const qint64 seconds = qint64(record.time) - m_lastTime;
        m_lastTime = record.time;
        if (!isPlain(record, seconds))
            addAny(record, seconds);
        else if (addPlain(record, record.ballansingCurrent * seconds))
            return;
    }
    record.balancedMah = record.maxBalanceChargeMah();
}

// No bounds are checked for each cell but those of what a record shows. True if that did for all.
bool BalanceIntegrator::addPlain(Varnel3Data &record, qint64 factor)
{
    quint64 sums = 0; // bits of them
    int highest = 0;
    const int cells = record.cellsPresent();
    for (int i = 0; i < cells; ++i) {
        m_charge[i] += record.cells[i].balance * factor;
        sums |= quint64(m_charge[i]);
        const int charge = int(qMin<qint64>(m_charge[i], INT32_MAX));
        record.cells[i].balanceCharge = charge;
        highest = qMax(highest, charge);
    }
    if (sums > quint64(mostCharge)) {
        addAny(record, 0);
        return false;
    }
    record.balancedMah = highest / Varnel3Data::chargePerMah;
    return true;
}

void BalanceIntegrator::addAny(Varnel3Data &record, qint64 seconds)
{
    const int cells = record.cellsPresent();
    for (int i = 0; i < cells; ++i) {
        CellData &cell = record.cells[i];
        const qint64 step = chargeOf(cell.balance, record.ballansingCurrent, seconds);
        m_charge[i] = qBound(-mostCharge, m_charge[i] + step, mostCharge);
        cell.balanceCharge = saturated(m_charge[i]);
    }
}
