#pragma once

#include "logbook/logbookbatch.h"

/// What waits for the file of a logbook. What the user changes goes first, and with it all that gives rows
/// other files; what was read follows, as much of it at once as a slow disk has soon behind it.
class LogbookQueue {
public:
    static constexpr int mostReadings = 256; ///< batches of what was read, in a transaction

    /// What is written as one transaction. Stays in the queue until drop().
    struct Lot {
        QVector<LogbookBatch> batches; ///< in their order
        bool isFirst = false; ///< of what goes first
    };

    void add(const LogbookBatch &batch);
    bool isEmpty() const { return m_first.isEmpty() && m_readings.isEmpty(); }
    bool holdsFirst() const { return !m_first.isEmpty(); }
    Lot next() const; ///< of a queue that is not empty
    /// The first `count` batches of `lot`, which next() has given last, are done with.
    void drop(const Lot &lot, int count);

private:
    void follow(const LogbookBatch &batch);

    QVector<LogbookBatch> m_first;
    QVector<LogbookBatch> m_readings;
};
