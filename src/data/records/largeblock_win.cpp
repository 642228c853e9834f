#include "data/records/largeblock.h"

#include <new>

#include <windows.h>

// Large pages need a privilege that users do not have here.
LargeBlock::LargeBlock(std::size_t size)
    : m_data(::VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))
    , m_size(size)
{
    if (m_data == nullptr)
        throw std::bad_alloc();
}

LargeBlock::~LargeBlock()
{
    if (m_data != nullptr)
        ::VirtualFree(m_data, 0, MEM_RELEASE);
}
