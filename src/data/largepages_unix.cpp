#include "data/largepages.h"

#include <sys/mman.h>

void preferLargePages(void *memory, std::size_t size)
{
#ifdef MADV_HUGEPAGE
    ::madvise(memory, size, MADV_HUGEPAGE);
#else
    static_cast<void>(memory);
    static_cast<void>(size);
#endif
}
