#include "data/records/narrownumbers.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

using Range = NarrowNumbers::Range;

void take(Range *range, int number)
{
    range->low = std::min(range->low, number);
    range->high = std::max(range->high, number);
}

#if defined(__SSE2__)

__m128i load(const void *at)
{
    return _mm_loadu_si128(static_cast<const __m128i *>(at));
}

__m128i lower(__m128i a, __m128i b, quint8)
{
    return _mm_min_epu8(a, b);
}

__m128i higher(__m128i a, __m128i b, quint8)
{
    return _mm_max_epu8(a, b);
}

// There is no such instruction for two bytes without a sign, but a difference that stops at 0.
__m128i lower(__m128i a, __m128i b, quint16)
{
    return _mm_sub_epi16(a, _mm_subs_epu16(a, b));
}

__m128i higher(__m128i a, __m128i b, quint16)
{
    return _mm_add_epi16(b, _mm_subs_epu16(a, b));
}

// What the registers have, each half with the other until a number is left.
template <typename Number>
Range folded(__m128i low, __m128i high)
{
    const auto fold = [&](__m128i lowHalf, __m128i highHalf) {
        low = lower(low, lowHalf, Number());
        high = higher(high, highHalf, Number());
    };
    fold(_mm_srli_si128(low, 8), _mm_srli_si128(high, 8));
    fold(_mm_srli_si128(low, 4), _mm_srli_si128(high, 4));
    fold(_mm_srli_si128(low, 2), _mm_srli_si128(high, 2));
    if (sizeof(Number) == 1)
        fold(_mm_srli_si128(low, 1), _mm_srli_si128(high, 1));
    return {Number(_mm_cvtsi128_si32(low)), Number(_mm_cvtsi128_si32(high))};
}

/// The extremes of `count` numbers, above the lowest of their column; at least one register full.
template <typename Number>
Range wideExtremes(const char *bytes, int count)
{
    constexpr int step = int(sizeof(__m128i) / sizeof(Number));
    __m128i low = load(bytes);
    __m128i high = low;
    const auto takeAt = [&](int i) {
        const __m128i next = load(bytes + sizeof(Number) * size_t(i));
        low = lower(low, next, Number());
        high = higher(high, next, Number());
    };
    for (int i = step; i + step <= count; i += step)
        takeAt(i);
    takeAt(count - step); // some of them once more
    return folded<Number>(low, high);
}

void store(int *at, __m128i value)
{
    _mm_storeu_si128(reinterpret_cast<__m128i *>(at), value);
}

// Eight numbers, each above `low`.
void widenEight(__m128i numbers, __m128i low, int *wide)
{
    const __m128i zero = _mm_setzero_si128();
    store(wide, _mm_add_epi32(low, _mm_unpacklo_epi16(numbers, zero)));
    store(wide + 4, _mm_add_epi32(low, _mm_unpackhi_epi16(numbers, zero)));
}

// Of `count` numbers as many as fill registers; how many that were.
int widen(const char *bytes, int count, int low, int *wide, quint8)
{
    const __m128i lows = _mm_set1_epi32(low);
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m128i numbers = load(bytes + i);
        widenEight(_mm_unpacklo_epi8(numbers, _mm_setzero_si128()), lows, wide + i);
        widenEight(_mm_unpackhi_epi8(numbers, _mm_setzero_si128()), lows, wide + i + 8);
    }
    return i;
}

int widen(const char *bytes, int count, int low, int *wide, quint16)
{
    const __m128i lows = _mm_set1_epi32(low);
    int i = 0;
    for (; i + 8 <= count; i += 8)
        widenEight(load(bytes + sizeof(quint16) * size_t(i)), lows, wide + i);
    return i;
}

#endif

} // namespace

template <typename Number>
void NarrowNumbers::copyAll(int begin, int count, int *numbers) const
{
    int copied = 0;
#if defined(__SSE2__)
    if constexpr (sizeof(Number) < 4)
        copied = widen(bytes + sizeof(Number) * size_t(begin), count, low, numbers, Number());
#endif
    for (int i = copied; i < count; ++i)
        numbers[i] = int(quint32(low) + read<Number>(begin + i));
}

void NarrowNumbers::copy(int begin, int count, int *numbers) const
{
    if (width == 0)
        std::fill_n(numbers, count, low);
    else if (width == 1)
        copyAll<quint8>(begin, count, numbers);
    else if (width == 2)
        copyAll<quint16>(begin, count, numbers);
    else
        copyAll<quint32>(begin, count, numbers);
}

template <typename Number>
Range NarrowNumbers::extremesOf(int begin, int end) const
{
#if defined(__SSE2__)
    if constexpr (sizeof(Number) < 4) {
        if (end - begin >= int(sizeof(__m128i) / sizeof(Number))) {
            const Range above = wideExtremes<Number>(bytes + sizeof(Number) * size_t(begin), end - begin);
            return {int(quint32(low) + quint32(above.low)), int(quint32(low) + quint32(above.high))};
        }
    }
#endif
    Range range = {(*this)[begin], (*this)[begin]};
    for (int i = begin + 1; i < end; ++i)
        take(&range, int(quint32(low) + read<Number>(i)));
    return range;
}

Range NarrowNumbers::extremes(int begin, int end) const
{
    switch (width) {
    case 0:
        return {low, low};
    case 1:
        return extremesOf<quint8>(begin, end);
    case 2:
        return extremesOf<quint16>(begin, end);
    default:
        return extremesOf<quint32>(begin, end);
    }
}
