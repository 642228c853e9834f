#include "data/recordlist.h"

#include "data/largepages.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t smallBlocks = 4; // allocated one by one; beyond them it is a long file
constexpr int blocksInChunk = 16;

} // namespace

RecordList &RecordList::operator=(RecordList &&other) noexcept
{
    if (this != &other) {
        clear();
        swap(other);
    }
    return *this;
}

void *RecordList::slotForNext(Filling filling)
{
    const auto block = size_t(m_size / blockSize);
    if (block == m_blocks.size()) {
        if (filling == Slow || block < smallBlocks)
            addBlocks(1, alignof(std::max_align_t));
        else
            addBlocks(blocksInChunk, largePageSize);
    }
    return m_blocks[block] + m_size % blockSize;
}

void RecordList::addBlocks(int count, std::size_t alignment)
{
    const size_t used = size_t(count) * blockSize * sizeof(Varnel3Data);
    const size_t size = (used + alignment - 1) / alignment * alignment;
    m_blocks.reserve(m_blocks.size() + size_t(count)); // so that nothing below can lose the memory
    m_chunks.reserve(m_chunks.size() + 1);
    void *const memory = ::operator new(size, std::align_val_t(alignment));
    m_chunks.push_back({memory, std::align_val_t(alignment)});
    if (alignment == largePageSize)
        preferLargePages(memory, size);
    for (int i = 0; i < count; ++i)
        m_blocks.push_back(static_cast<Varnel3Data *>(memory) + size_t(i) * blockSize);
}

Varnel3Data &RecordList::append(const Varnel3Data &record)
{
    Varnel3Data &copy = *new (slotForNext(Slow)) Varnel3Data(record);
    ++m_size;
    return copy;
}

Varnel3Data &RecordList::appendNew()
{
    Varnel3Data &record = *new (slotForNext(Fast)) Varnel3Data;
    ++m_size;
    return record;
}

void RecordList::clear()
{
    for (const Chunk &chunk : m_chunks)
        ::operator delete(chunk.memory, chunk.alignment);
    m_chunks.clear();
    m_blocks.clear();
    m_size = 0;
}

void RecordList::swap(RecordList &other) noexcept
{
    m_blocks.swap(other.m_blocks);
    m_chunks.swap(other.m_chunks);
    std::swap(m_size, other.m_size);
}
