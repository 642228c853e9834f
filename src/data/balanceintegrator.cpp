#include "data/balanceintegrator.h"

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

} // namespace

void BalanceIntegrator::reset(int startTime)
{
    std::fill(std::begin(m_charge), std::end(m_charge), 0);
    m_lastTime = startTime;
}

void BalanceIntegrator::add(Varnel3Data &record)
{
    if (record.flag5 != 'B')
        return;
    const qint64 seconds = qint64(record.time) - m_lastTime;
    const int current = record.ballansingCurrent;
    const int cells = record.cellsPresent();
    for (int i = 0; i < cells; ++i) {
        CellData &cell = record.cells[i];
        const qint64 step = chargeOf(cell.balance, current, seconds);
        m_charge[i] = qBound(-mostCharge, m_charge[i] + step, mostCharge);
        cell.balanceCharge = saturated(m_charge[i]);
    }
    m_lastTime = record.time;
}
