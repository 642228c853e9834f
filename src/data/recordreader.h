#pragma once

#include "data/varnel3data.h"

#include <memory>

class RecordList;

/// Reads a recording from one end to the other, a block of records at a time, which takes a fraction of what
/// asking the recording for one after the other does. The recording may grow meanwhile.
class RecordReader {
public:
    /// `records` outlives this.
    explicit RecordReader(const RecordList &records);
    ~RecordReader();

    /// Record `index`, valid until the next call.
    const Varnel3Data &at(int index);

private:
    void unpack(int block);

    const RecordList &m_records;
    std::unique_ptr<Varnel3Data[]> m_block; // null until one is read
    int m_unpacked = -1; // the block that m_block holds
    Varnel3Data m_newest; // of those that are not packed yet
};
