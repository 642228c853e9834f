#pragma once

#include <cstddef>
#include <utility>

/// Memory for a long recording, got from the system directly and given back to it at once. The system backs
/// it by large pages where it has them, which costs a fraction of what small ones do.
class LargeBlock {
public:
    /// What a large page measures on the systems at hand, in bytes.
    static constexpr std::size_t pageSize = std::size_t(2) << 20;

    LargeBlock() = default;
    /// Of `size` bytes, which are 0, rounded up to whole large pages. Throws std::bad_alloc.
    explicit LargeBlock(std::size_t size);
    ~LargeBlock();
    LargeBlock(LargeBlock &&other) noexcept { *this = std::move(other); }
    LargeBlock &operator=(LargeBlock &&other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        return *this;
    }
    LargeBlock(const LargeBlock &) = delete;
    LargeBlock &operator=(const LargeBlock &) = delete;

    void *data() const { return m_data; }

private:
    void *m_data = nullptr;
    std::size_t m_size = 0;
};
