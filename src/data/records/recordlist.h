#pragma once

#include "data/records/blockarena.h"
#include "data/records/openrecords.h"
#include "data/records/recordblock.h"

/// The records of one recording in arrival order, in columns: a record takes what its figures need, to the
/// byte, and nothing for those that don't change. Grows in blocks, so that an append never copies what is
/// there. Memory is taken in small steps by what comes live, since many live recordings grow side by side,
/// in large ones for a long file.
class RecordList {
public:
    using Column = RecordColumns::Column;
    static constexpr int blockSize = PackedColumn::length; ///< records

    RecordList() = default;
    ~RecordList() = default;
    RecordList(RecordList &&other) noexcept { swap(other); }
    RecordList &operator=(RecordList &&other) noexcept;
    RecordList(const RecordList &) = delete;
    RecordList &operator=(const RecordList &) = delete;

    int size() const { return int(m_blocks.size()) * blockSize + m_open.count(); }
    bool isEmpty() const { return m_open.isEmpty(); }
    Varnel3Data operator[](int index) const;
    Varnel3Data first() const { return (*this)[0]; }
    Varnel3Data last() const { return (*this)[size() - 1]; }

    /// One figure of record `index`: a RecordColumns::Column, or one of a cell.
    int figure(int column, int index) const { return numbers(column, index / blockSize)[index % blockSize]; }
    /// The figures of a block's records.
    NarrowNumbers numbers(int column, int block) const
    {
        return block < packedBlocks() ? m_blocks[size_t(block)]->numbers(column) : m_open.numbers(column);
    }
    /// Blocks whose records don't change any more; one with the newest records comes behind them.
    int packedBlocks() const { return int(m_blocks.size()); }
    /// Of a packed block.
    const RecordBlock &packed(int block) const { return *m_blocks[size_t(block)]; }

    /// Takes the memory that the next append() needs, which then can't fail. Throws std::bad_alloc where
    /// there is too little, and has changed nothing.
    void makeRoom(BlockArena::Growth growth = BlockArena::Slow);
    void append(const Varnel3Data &record, BlockArena::Growth growth = BlockArena::Slow);
    /// The last record becomes `record`. Not of an empty list. Takes no memory.
    void replaceLast(const Varnel3Data &record) { m_open.replaceLast(record); }
    void clear();
    void swap(RecordList &other) noexcept;

private:
    BlockArena m_arena; // holds the blocks
    std::vector<const RecordBlock *> m_blocks;
    OpenRecords m_open; // holds the last record
};
