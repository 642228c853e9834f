#pragma once

#include "data/varnel3data.h"

class RecordList;

/// Sums over a recording, cell by cell, what the balancer has moved. Exact in 64 bits; a record shows what
/// fits its 32 bits, the nearest value where the sum does not fit.
class BalanceIntegrator {
public:
    /// Starts at nothing; the first record counts from `startTime` (s) on.
    void reset(int startTime);
    /// Starts at the sums and the time that `records` end with, of which there is at least one.
    void goOn(const RecordList &records);
    /// The same sums, but the next record counts from `time` (s) on: a balancer's clock is not its records'.
    void goOnFrom(int time) { m_lastTime = time; }
    /// Adds the time from the last such record to this one, writes the sums to the record's cells and the
    /// highest of all its cells to its `balancedMah`. A record without balancing data adds nothing. The
    /// record's final time is set before.
    void add(Varnel3Data &record);

private:
    bool addPlain(Varnel3Data &record, qint64 factor);
    void addAny(Varnel3Data &record, qint64 seconds);

    qint64 m_charge[Varnel3Data::maxCells] = {}; // per cent x mA x s
    int m_lastTime = 0;
};
