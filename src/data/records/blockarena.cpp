#include "data/records/blockarena.h"

namespace {

constexpr std::size_t smallSteps = 4; // beyond them it is a long file
constexpr std::size_t alignment = 16;

} // namespace

void BlockArena::makeRoom(std::size_t bytes, Growth growth)
{
    if (std::size_t(m_end - m_next) >= bytes)
        return;
    if (growth == Fast && m_small.size() >= smallSteps) {
        m_large.emplace_back(largeStep);
        m_next = static_cast<char *>(m_large.back().data());
        m_end = m_next + largeStep;
    } else {
        m_small.reserve(m_small.size() + 1);
        m_small.emplace_back(new char[smallStep]);
        m_next = m_small.back().get();
        m_end = m_next + smallStep;
    }
}

void BlockArena::take(std::size_t bytes)
{
    m_next += (bytes + alignment - 1) / alignment * alignment;
}
