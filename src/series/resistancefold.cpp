#include "series/resistancefold.h"

#include "data/records/recordlist.h"

#include <algorithm>

namespace {

constexpr int warmUp = 96; // values after which no more than maxSteps steps are left, whatever the values are
constexpr qint64 limit = Q_INT64_C(1) << 34; // no accumulator of 32-bit values leaves -limit..limit

qint64 fold(qint64 accumulator, qint64 value)
{
    return accumulator - accumulator / 4 + value;
}

} // namespace

void ResistanceFold::seed(qint64 accumulator)
{
    *this = ResistanceFold();
    m_accumulator = accumulator;
}

qint64 ResistanceFold::valueOf(const RecordList &records, int index, int newest)
{
    const auto own
        = [&records](int at) { return qint64(records.figure(RecordColumns::InternalResistance, at)); };
    if (own(index) != 0 || index >= newest)
        return own(index);
    return (own(index - 1) + own(index + 1)) / 2;
}

qint64 ResistanceFold::addNewest(const RecordList &records)
{
    const int newest = records.size() - 1;
    if (m_hasSteps)
        extendSteps(valueOf(records, newest - 1, newest));
    else if (newest - first() >= warmUp)
        startSteps(records, newest);

    if (m_hasSteps)
        m_accumulator
            = m_lowest + (std::upper_bound(m_steps, m_steps + m_stepCount, m_accumulator) - m_steps);
    else
        m_accumulator = foldRun(records, m_accumulator, newest);
    m_accumulator = fold(m_accumulator, valueOf(records, newest, newest));
    return m_accumulator / 4;
}

qint64 ResistanceFold::foldRun(const RecordList &records, qint64 accumulator, int end) const
{
    for (int i = first(); i < end; ++i)
        accumulator = fold(accumulator, valueOf(records, i, end));
    return accumulator;
}

// Only the shortest run that will do is walked again and again for its steps, however many records there are.
void ResistanceFold::startSteps(const RecordList &records, int newest)
{
    const int end = first() + warmUp;
    buildSteps(records, end);
    for (int i = end; m_hasSteps && i < newest; ++i)
        extendSteps(valueOf(records, i, newest));
}

void ResistanceFold::buildSteps(const RecordList &records, int end)
{
    m_lowest = foldRun(records, -limit, end);
    const qint64 highest = foldRun(records, limit, end);
    if (highest - m_lowest > maxSteps)
        return;
    m_stepCount = int(highest - m_lowest);
    for (int step = 0; step < m_stepCount; ++step) {
        qint64 below = -limit;
        qint64 from = limit;
        while (from - below > 1) {
            const qint64 middle = below + (from - below) / 2;
            (foldRun(records, middle, end) > m_lowest + step ? from : below) = middle;
        }
        m_steps[step] = from;
    }
    m_hasSteps = true;
}

void ResistanceFold::extendSteps(qint64 value)
{
    int kept = 0;
    for (int step = 0; step < m_stepCount; ++step) {
        const qint64 before = m_lowest + step;
        if (fold(before + 1, value) != fold(before, value))
            m_steps[kept++] = m_steps[step];
    }
    m_stepCount = kept;
    m_lowest = fold(m_lowest, value);
}
