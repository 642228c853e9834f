#pragma once

#include "data/varnel3data.h"

#include <memory>
#include <vector>

/// The records of one recording in arrival order. Grows in blocks, so that an append never copies what is there and
/// references to records stay valid until clear().
class RecordList {
public:
    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const Varnel3Data &operator[](int index) const { return m_blocks[index / blockSize][index % blockSize]; }
    Varnel3Data &operator[](int index) { return m_blocks[index / blockSize][index % blockSize]; }
    const Varnel3Data &first() const { return (*this)[0]; }
    const Varnel3Data &last() const { return (*this)[m_size - 1]; }
    Varnel3Data &last() { return (*this)[m_size - 1]; }
    /// Appends a copy and returns it.
    Varnel3Data &append(const Varnel3Data &record);
    void removeLast() { --m_size; }
    void clear();

private:
    static constexpr int blockSize = 1024; // records; half a megabyte


    std::vector<std::unique_ptr<Varnel3Data[]>> m_blocks;
    int m_size = 0;
};
