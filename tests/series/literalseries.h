#pragma once

#include "data/varnel3data.h"

#include <vector>

/// The rules of the running series written out as they are worded, walking all records for every new one.
/// What the store does at constant cost has to give the same bits.
class LiteralSeries {
public:
    void append(const Varnel3Data &record);

    std::vector<double> resistance; ///< one point longer than the records while there are 17 of them
    std::vector<double> dv;

private:
    void appendResistance();
    void recomputeDv();

    std::vector<Varnel3Data> m_records;
    qint64 m_accumulator = 0;
};
