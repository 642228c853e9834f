#pragma once

#include "data/largeblock.h"
#include "data/varnel3data.h"

#include <memory>
#include <type_traits>
#include <vector>

/// The records of one recording in arrival order. Grows in blocks, so that an append never copies what
/// is there and references to records stay valid until clear() or a move. Memory is taken as records
/// are written: in small steps by append(), since many live recordings grow side by side, in large
/// ones for a long file by appendNew().
class RecordList {
public:
    static constexpr int blockSize = 1024; ///< records that lie side by side, from each multiple of it on

    RecordList() = default;
    ~RecordList() = default;
    RecordList(RecordList &&other) noexcept { swap(other); }
    RecordList &operator=(RecordList &&other) noexcept;
    RecordList(const RecordList &) = delete;
    RecordList &operator=(const RecordList &) = delete;

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const Varnel3Data &operator[](int index) const { return m_blocks[index / blockSize][index % blockSize]; }
    Varnel3Data &operator[](int index) { return m_blocks[index / blockSize][index % blockSize]; }
    const Varnel3Data &first() const { return (*this)[0]; }
    const Varnel3Data &last() const { return (*this)[m_size - 1]; }
    Varnel3Data &last() { return (*this)[m_size - 1]; }
    /// Takes the memory that the next append() needs, which then can't fail. Throws std::bad_alloc where
    /// there is too little, and has changed nothing.
    void makeRoom() { slotForNext(Slow); }
    /// Appends a copy and returns it. `record` may be one of the list's own.
    Varnel3Data &append(const Varnel3Data &record);
    /// Appends a record of default values, to be filled in place, and returns it.
    Varnel3Data &appendNew();
    /// Only of a list that is not empty.
    void removeLast() { --m_size; }
    void clear();
    void swap(RecordList &other) noexcept;

private:
    static_assert(std::is_trivially_copyable_v<Varnel3Data> && std::is_trivially_destructible_v<Varnel3Data>,
        "blocks are raw memory whose records are never destroyed one by one");

    enum Filling { Slow, Fast };

    void *slotForNext(Filling filling);
    void addBlock();
    void addLargeBlock();

    std::vector<Varnel3Data *> m_blocks; // raw memory of blockSize records each, inside what follows
    std::vector<std::unique_ptr<char[]>> m_small;
    std::vector<LargeBlock> m_large;
    int m_size = 0;
};
