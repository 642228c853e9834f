#include "graph/curves/vectorstate.h"

#if defined(__x86_64__) && defined(__GNUC__)

#include <immintrin.h>

namespace {

__attribute__((target("avx"))) void clearUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void clearVectorState()
{
    if (__builtin_cpu_supports("avx"))
        clearUpperHalves();
}

#else

void clearVectorState() { }

#endif
