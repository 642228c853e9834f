#include "data/records/largeblock.h"

#include <cstdint>
#include <new>

#include <sys/mman.h>

// A mapping larger by a large page has whole ones from some place in it on; what lies around them goes back.
LargeBlock::LargeBlock(std::size_t size)
    : m_size((size + pageSize - 1) / pageSize * pageSize)
{
    const std::size_t mapped = m_size + pageSize;
    void *const memory
        = ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    char *const begin = static_cast<char *>(memory);
    const std::size_t before = (pageSize - reinterpret_cast<std::uintptr_t>(memory) % pageSize) % pageSize;
    char *const data = begin + before;
    ::munmap(begin, before); // of nothing, it does nothing
    ::munmap(data + m_size, pageSize - before);
    m_data = data;
#ifdef MADV_HUGEPAGE
    ::madvise(m_data, m_size, MADV_HUGEPAGE); // a wish only
#endif
}

LargeBlock::~LargeBlock()
{
    if (m_data != nullptr)
        ::munmap(m_data, m_size);
}
