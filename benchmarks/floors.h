#pragma once

#include <QByteArray>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstring>

/// The least that any way of reading `size` bytes can take: each is looked at once.
inline void passOver(const void *bytes, std::size_t size)
{
    const auto *at = static_cast<const char *>(bytes);
    std::size_t sum = 0;
    for (const char *const end = at + size / sizeof sum * sizeof sum; at != end; at += sizeof sum) {
        std::size_t word = 0;
        std::memcpy(&word, at, sizeof word);
        sum += word;
    }
    benchmark::DoNotOptimize(sum);
}

inline void passOver(const QByteArray &bytes)
{
    passOver(bytes.constData(), std::size_t(bytes.size()));
}
