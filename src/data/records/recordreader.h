#pragma once

#include "data/varnel3data.h"

#include <memory>

class RecordList;

/// Reads a recording from one end to the other, a block of records at a time, which takes a fraction of what
/// asking the recording for one after the other does. The recording may grow meanwhile.
class RecordReader {
public:
    /// `records` outlives this. Throws std::bad_alloc where there is too little memory; reading takes none.
    explicit RecordReader(const RecordList &records);
    ~RecordReader();

    /// Record `index`, valid until the next call.
    const Varnel3Data &at(int index);

private:
    void unpack(int block);

    const RecordList &m_records;
    std::unique_ptr<Varnel3Data[]> m_block;
    int m_unpacked = -1; // the block that m_block holds
    Varnel3Data m_newest; // of those that are not packed yet
};
