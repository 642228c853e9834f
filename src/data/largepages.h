#pragma once

#include <cstddef>

/// What a large page measures on the systems at hand, in bytes.
constexpr std::size_t largePageSize = std::size_t(2) << 20;

/// Asks the system to back `size` bytes at `memory`, both multiples of largePageSize, by large pages as they are first
/// written: filling a long recording then costs a fraction of the time. A hint only.
void preferLargePages(void *memory, std::size_t size);
