#include "data/records/packedcolumn.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr int length = PackedColumn::length;

template <typename Number>
void narrow(const int *figures, int low, char *bytes)
{
    Number numbers[length];
    std::transform(figures, figures + length, numbers,
        [low](int figure) { return Number(quint32(figure) - quint32(low)); });
    std::memcpy(bytes, numbers, sizeof numbers);
}

#if defined(__SSE2__)

constexpr int step = 8; // numbers of two bytes at once
constexpr int wideStep = 4; // of four

__m128i load(const void *at)
{
    return _mm_loadu_si128(static_cast<const __m128i *>(at));
}

void store(void *at, __m128i value)
{
    _mm_storeu_si128(static_cast<__m128i *>(at), value);
}

/// What the figures of nearly all columns are: little more or less than their first.
class NearNumbers {
public:
    explicit NearNumbers(const int *figures)
        : m_first(figures[0])
    {
        const __m128i first = _mm_set1_epi32(m_first);
        __m128i low = _mm_setzero_si128();
        __m128i high = low;
        for (int i = 0; i < length; i += step) {
            const __m128i beyond = _mm_packs_epi32( // stops at what two bytes hold
                _mm_sub_epi32(load(figures + i), first), _mm_sub_epi32(load(figures + i + wideStep), first));
            low = _mm_min_epi16(low, beyond);
            high = _mm_max_epi16(high, beyond);
            store(m_beyond + i, beyond);
        }
        const auto fold = [&](__m128i lowHalf, __m128i highHalf) {
            low = _mm_min_epi16(low, lowHalf);
            high = _mm_max_epi16(high, highHalf);
        };
        fold(_mm_srli_si128(low, 8), _mm_srli_si128(high, 8));
        fold(_mm_srli_si128(low, 4), _mm_srli_si128(high, 4));
        fold(_mm_srli_si128(low, 2), _mm_srli_si128(high, 2));
        m_low = qint16(_mm_cvtsi128_si32(low));
        m_high = qint16(_mm_cvtsi128_si32(high));
    }

    /// False where a difference has left two bytes or 32 bits: the numbers then mean nothing.
    bool areExact() const
    {
        return m_low > INT16_MIN && m_high < INT16_MAX && low() <= m_first && high() >= m_first;
    }
    int low() const { return int(quint32(m_first) + quint32(m_low)); }
    int high() const { return int(quint32(m_first) + quint32(m_high)); }
    void narrow(int width, char *bytes) const
    {
        const __m128i low = _mm_set1_epi16(qint16(m_low));
        const auto above = [&](int i) { return _mm_sub_epi16(load(m_beyond + i), low); };
        for (int i = 0; i < length && width == 1; i += 2 * step)
            store(bytes + i, _mm_packus_epi16(above(i), above(i + step)));
        for (int i = 0; i < length && width == 2; i += step)
            store(bytes + sizeof(qint16) * size_t(i), above(i));
    }

private:
    int m_first;
    int m_low;
    int m_high;
    qint16 m_beyond[length]; // each figure's
};

PackedColumn rangeOf(const int *figures)
{
    __m128i low = load(figures);
    __m128i high = low;
    const auto chosen = [](__m128i mask, __m128i a, __m128i b) {
        return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
    };
    for (int i = wideStep; i < length; i += wideStep) {
        const __m128i next = load(figures + i);
        low = chosen(_mm_cmplt_epi32(next, low), next, low);
        high = chosen(_mm_cmpgt_epi32(next, high), next, high);
    }
    int lows[wideStep];
    int highs[wideStep];
    store(lows, low);
    store(highs, high);
    return {*std::min_element(lows, lows + wideStep), *std::max_element(highs, highs + wideStep)};
}

#else

PackedColumn rangeOf(const int *figures)
{
    const auto ends = std::minmax_element(figures, figures + length);
    return {*ends.first, *ends.second};
}

#endif

} // namespace

PackedColumn PackedColumn::pack(const int *figures, char *block, quint32 *end)
{
    if (std::memcmp(figures, figures + 1, (length - 1) * sizeof(int)) == 0) // most never change
        return {*figures, *figures, *end};
    char *const bytes = block + *end;
#if defined(__SSE2__)
    const NearNumbers near(figures);
    if (near.areExact()) {
        const PackedColumn column = {near.low(), near.high(), *end};
        near.narrow(column.width(), bytes);
        *end += quint32(column.width() * length);
        return column;
    }
#endif
    PackedColumn column = rangeOf(figures);
    column.place = *end;
    const int width = column.width();
    if (width == 1)
        narrow<quint8>(figures, column.low, bytes);
    else if (width == 2)
        narrow<quint16>(figures, column.low, bytes);
    else
        narrow<quint32>(figures, column.low, bytes);
    *end += quint32(width * length);
    return column;
}
