#include "data/recordlist.h"

#include <new>
#include <utility>

RecordList &RecordList::operator=(RecordList &&other) noexcept
{
    if (this != &other) {
        clear();
        swap(other);
    }
    return *this;
}

void *RecordList::slotForNext()
{
    const size_t block = size_t(m_size / blockSize);
    if (block == m_blocks.size()) {
        m_blocks.reserve(block + 1); // so that the push below can't lose the block
        m_blocks.push_back(static_cast<Varnel3Data *>(::operator new(blockSize * sizeof(Varnel3Data))));
    }
    return m_blocks[block] + m_size % blockSize;
}

Varnel3Data &RecordList::append(const Varnel3Data &record)
{
    Varnel3Data &copy = *new (slotForNext()) Varnel3Data(record);
    ++m_size;
    return copy;
}

Varnel3Data &RecordList::appendNew()
{
    Varnel3Data &record = *new (slotForNext()) Varnel3Data;
    ++m_size;
    return record;
}

void RecordList::clear()
{
    for (Varnel3Data *block : m_blocks)
        ::operator delete(block);
    m_blocks.clear();
    m_size = 0;
}

void RecordList::swap(RecordList &other) noexcept
{
    m_blocks.swap(other.m_blocks);
    std::swap(m_size, other.m_size);
}
