#pragma once

#include <QtGlobal>

class RecordList;

/// The running internal resistance of a recording.
///
/// The rule: for every new record n the values of the records first()..n are folded once more into one
/// accumulator, a = a - a/4 + value (integers, truncating), which is never reset in between, and a/4 is the
/// point of record n. A value of 0 that has a successor counts as the mean of its neighbours.
///
/// Walking first()..n for every record would take a day for a long recording. Every fold a -> a - a/4 + v is
/// monotone and steps by 0 or 1, so the fold over any run of values is a step function of `a` that is given
/// by its lowest value and the few places where it steps; there are at most six once a run is some ninety
/// values long. That function is kept for first()..n-1 and extended by one value a record, which makes the
/// cost constant and the result the same.
class ResistanceFold {
public:
    /// Index of the first record that is folded.
    static constexpr int first() { return 18; }

    /// Forgets all and starts with this accumulator, four times the running value in mOhm.
    void seed(qint64 accumulator);
    /// Folds for the newest of `records`, of which there are more than first(), and returns its point (mOhm).
    /// To be called for each record that comes after the seed.
    qint64 addNewest(const RecordList &records);

    /// What record `index` counts with when `newest` is the last one.
    static qint64 valueOf(const RecordList &records, int index, int newest);

private:
    void startSteps(const RecordList &records, int newest);
    void buildSteps(const RecordList &records, int end);
    void extendSteps(qint64 value);
    qint64 foldRun(const RecordList &records, qint64 accumulator, int end) const;

    static constexpr int maxSteps = 8;

    qint64 m_accumulator = 0; // four times the running value
    bool m_hasSteps = false;
    qint64 m_lowest = 0; // what the run makes of an accumulator far below zero
    int m_stepCount = 0;
    qint64 m_steps[maxSteps] = {}; // ascending: accumulators from which the run's result is one higher
};
