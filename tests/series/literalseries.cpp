#include "series/literalseries.h"

void LiteralSeries::append(const Varnel3Data &record)
{
    m_records.push_back(record);
    if (resistance.size() < m_records.size())
        resistance.push_back(0.0);
    dv.push_back(0.0);
    if (record.device == Varnel3Data::Varnel3)
        appendResistance();
    if (m_records.size() > 17)
        recomputeDv();
}

void LiteralSeries::appendResistance()
{
    const size_t count = m_records.size();
    if (count == 17) {
        m_accumulator = qint64(m_records[16].internalResistance) * 4;
        resistance.push_back(m_records[16].internalResistance);
    }
    for (size_t i = 18; i < count; ++i) {
        qint64 value = m_records[i].internalResistance;
        if (value == 0 && i + 1 < count)
            value = (qint64(m_records[i - 1].internalResistance) + m_records[i + 1].internalResistance) / 2;
        m_accumulator = m_accumulator - m_accumulator / 4 + value;
        resistance[count - 1] = double(m_accumulator / 4);
    }
    for (size_t i = 0; count > 17 && i < 17; ++i)
        resistance[i] = resistance[17];
}

void LiteralSeries::recomputeDv()
{
    const size_t count = m_records.size();
    for (size_t i = 17; i < count; ++i) {
        const size_t before = i == 17 ? 17 : i - 1;
        dv[i] = double((qint64(m_records[i].voltage) - m_records[before].voltage) * 12);
    }
    double sum = 12 * dv[17];
    for (size_t i = 17; i < count; ++i) {
        sum = sum - sum / 12 + dv[i];
        dv[i] = sum / 12;
    }
}
