#pragma once

#include "data/varnel3data.h"

#include <QVector>

/// Records and series as one would write them first: what a rule says is computed anew over the whole
/// recording for every record.
class NaiveStore {
public:
    void append(const Varnel3Data &record);
    /// Appends without deriving what takes the whole recording, to get to a length quickly.
    void appendQuickly(const Varnel3Data &record);
    /// Takes over what was read from a file; its resistance is folded once.
    void load(QVector<Varnel3Data> records);
    const QVector<double> &resistance() const { return m_resistance; }

private:
    void addPoints(const Varnel3Data &record);
    void deriveResistance();
    void foldResistanceOnce();
    void deriveDv();

    QVector<Varnel3Data> m_records;
    QVector<double> m_time, m_voltage, m_current, m_energy, m_temperature, m_resistance, m_dv;
    QVector<double> m_cellMin, m_cellMax, m_cellAverage, m_cellDelta;
    QVector<double> m_cells[Varnel3Data::maxCells];
    int m_temperatureSum = 0;
    int m_resistanceSum = 0;
};
