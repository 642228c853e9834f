#include "data/recordlist.h"

#include <utility>

namespace {

constexpr size_t smallBlocks = 4; // allocated one by one; beyond them it is a long file
constexpr size_t blocksInLarge = 25; // little less than six large pages

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
            addBlock();
        else
            addLargeBlock();
    }
    return m_blocks[block] + m_size % blockSize;
}

// The room in m_blocks comes first, so that nothing behind it can lose the memory.
void RecordList::addBlock()
{
    m_blocks.reserve(m_blocks.size() + 1);
    m_small.reserve(m_small.size() + 1);
    m_small.emplace_back(new char[blockSize * sizeof(Varnel3Data)]);
    m_blocks.push_back(reinterpret_cast<Varnel3Data *>(m_small.back().get()));
}

void RecordList::addLargeBlock()
{
    m_blocks.reserve(m_blocks.size() + blocksInLarge);
    m_large.emplace_back(blocksInLarge * blockSize * sizeof(Varnel3Data));
    auto *const records = static_cast<Varnel3Data *>(m_large.back().data());
    for (size_t i = 0; i < blocksInLarge; ++i)
        m_blocks.push_back(records + i * blockSize);
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
    m_small.clear();
    m_large.clear();
    m_blocks.clear();
    m_size = 0;
}

void RecordList::swap(RecordList &other) noexcept
{
    m_blocks.swap(other.m_blocks);
    m_small.swap(other.m_small);
    m_large.swap(other.m_large);
    std::swap(m_size, other.m_size);
}
