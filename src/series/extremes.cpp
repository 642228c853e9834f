#include "series/extremes.h"

#include <algorithm>

#if defined(__SSE2__)

#include <emmintrin.h>

// Pairs of values in two chains that don't wait for each other, in variables of
// their own so that they stay in registers.
Interval extremesOf(const double *values, int begin, int end)
{
    __m128d lowA = _mm_set1_pd(values[begin]);
    __m128d highA = lowA;
    __m128d lowB = lowA;
    __m128d highB = lowA;
    int i = begin;
    for (; i + 4 <= end; i += 4) {
        const __m128d a = _mm_loadu_pd(values + i);
        const __m128d b = _mm_loadu_pd(values + i + 2);
        lowA = _mm_min_pd(lowA, a);
        highA = _mm_max_pd(highA, a);
        lowB = _mm_min_pd(lowB, b);
        highB = _mm_max_pd(highB, b);
    }
    for (; i < end; ++i) {
        const __m128d value = _mm_set1_pd(values[i]);
        lowA = _mm_min_pd(lowA, value);
        highA = _mm_max_pd(highA, value);
    }
    lowA = _mm_min_pd(lowA, lowB);
    highA = _mm_max_pd(highA, highB);
    return {std::min(_mm_cvtsd_f64(lowA), _mm_cvtsd_f64(_mm_unpackhi_pd(lowA, lowA))),
        std::max(_mm_cvtsd_f64(highA), _mm_cvtsd_f64(_mm_unpackhi_pd(highA, highA)))};
}

#else

Interval extremesOf(const double *values, int begin, int end)
{
    Interval found = {values[begin], values[begin]};
    for (int i = begin + 1; i < end; ++i)
        found.take({values[i], values[i]});
    return found;
}

#endif
