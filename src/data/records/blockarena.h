#pragma once

#include "data/records/largeblock.h"

#include <memory>
#include <vector>

/// Memory for blocks that are taken one after the other and given back all at once. Taken from the system in
/// small steps by what grows live, since there are many side by side, and in large ones for a long file.
class BlockArena {
public:
    enum Growth { Slow, Fast };

    /// Has room for `bytes`, of at most a small step. Throws std::bad_alloc, and has changed nothing.
    void makeRoom(std::size_t bytes, Growth growth);
    /// Where the next block may lie.
    char *next() const { return m_next; }
    /// The next block takes `bytes` of the room that was made.
    void take(std::size_t bytes);

    static constexpr std::size_t smallStep = std::size_t(128) << 10; ///< bytes
    static constexpr std::size_t largeStep = 2 * LargeBlock::pageSize; ///< bytes

private:
    std::vector<std::unique_ptr<char[]>> m_small;
    std::vector<LargeBlock> m_large;
    char *m_next = nullptr;
    char *m_end = nullptr;
};
