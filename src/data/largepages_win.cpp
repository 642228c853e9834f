#include "data/largepages.h"

void preferLargePages(void *, std::size_t)
{
    // Needs a privilege that users do not have here.
}
