#include "data/largeblock.h"

#include <cstdint>
#include <new>
#include <system_error>

#include <sys/mman.h>

namespace {

// From the end, since whoever asked for the memory begins at the beginning. Changes nothing that is there; systems
// that don't know of it leave the work to the first write.
void clearAhead([[maybe_unused]] char *begin, [[maybe_unused]] std::size_t size)
{
#ifdef MADV_POPULATE_WRITE
    for (std::size_t at = size; at > 0; at -= LargeBlock::pageSize) {
        if (::madvise(begin + at - LargeBlock::pageSize, LargeBlock::pageSize, MADV_POPULATE_WRITE) != 0)
            return;
    }
#endif
}

} // namespace

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
    if (before > 0)
        ::munmap(begin, before);
    ::munmap(data + m_size, pageSize - before);
    m_data = data;
#ifdef MADV_HUGEPAGE
    ::madvise(m_data, m_size, MADV_HUGEPAGE); // a wish only
#endif
    try {
        m_clearing = std::thread(clearAhead, data, m_size);
    } catch (const std::system_error &) {
        // then without
    }
}

LargeBlock::~LargeBlock()
{
    if (m_clearing.joinable())
        m_clearing.join();
    if (m_data != nullptr)
        ::munmap(m_data, m_size);
}
