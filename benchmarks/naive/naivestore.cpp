#include "naive/naivestore.h"

#include <utility>

void NaiveStore::append(const Varnel3Data &record)
{
    appendQuickly(record);
    deriveResistance();
    deriveDv();
}

void NaiveStore::load(QVector<Varnel3Data> records)
{
    m_records = std::move(records);
    m_temperatureSum = m_records.first().temperature * 4;
    for (const Varnel3Data &record : qAsConst(m_records))
        addPoints(record);
    foldResistanceOnce();
    deriveDv();
}

void NaiveStore::foldResistanceOnce()
{
    m_resistanceSum = m_records[17].internalResistance * 4;
    for (int i = 0; i <= 17; ++i)
        m_resistance[i] = m_records[17].internalResistance;
    for (int i = 18; i < m_records.size(); ++i) {
        int value = m_records[i].internalResistance;
        if (value == 0 && i + 1 < m_records.size())
            value = (m_records[i - 1].internalResistance + m_records[i + 1].internalResistance) / 2;
        m_resistanceSum = m_resistanceSum - m_resistanceSum / 4 + value;
        m_resistance[i] = m_resistanceSum / 4;
    }
}

void NaiveStore::appendQuickly(const Varnel3Data &record)
{
    if (m_records.isEmpty())
        m_temperatureSum = record.temperature * 4;
    m_records.append(record);
    if (m_records.size() == 17)
        m_resistanceSum = record.internalResistance * 4;
    addPoints(record);
}

void NaiveStore::addPoints(const Varnel3Data &record)
{
    m_temperatureSum = m_temperatureSum - m_temperatureSum / 4 + record.temperature;
    m_time.append(record.time);
    m_voltage.append(record.voltage / 1000.0);
    m_current.append(record.current / 1000.0);
    m_energy.append(record.energy);
    m_temperature.append(m_temperatureSum / 4 / 10.0);
    m_resistance.append(0);
    m_dv.append(0);
    m_cellMin.append(record.cellMin / 1000.0);
    m_cellMax.append(record.cellMax / 1000.0);
    m_cellAverage.append(record.cellAverage / 1000.0);
    m_cellDelta.append(m_cellMax.last() - m_cellMin.last());
    for (int i = 0; i < record.cellsPresent(); ++i)
        m_cells[i].append(record.cells[i].voltage / 1000.0);
}

void NaiveStore::deriveResistance()
{
    const int newest = m_records.size() - 1;
    for (int i = 18; i <= newest; ++i) {
        int value = m_records[i].internalResistance;
        if (value == 0 && i < newest)
            value = (m_records[i - 1].internalResistance + m_records[i + 1].internalResistance) / 2;
        m_resistanceSum = m_resistanceSum - m_resistanceSum / 4 + value;
        m_resistance[newest] = m_resistanceSum / 4;
    }
}

void NaiveStore::deriveDv()
{
    double sum = 0;
    for (int i = 18; i < m_records.size(); ++i) {
        sum = sum - sum / 12 + (m_records[i].voltage - m_records[i - 1].voltage) * 12;
        m_dv[i] = sum / 12;
    }
}
