#include "graph/extremes.h"

#include <algorithm>

// Four chains that don't wait for each other, in variables of their own so that they stay in registers.
Interval extremesOf(const double *values, int begin, int end)
{
    const auto take = [](Interval &found, double value) {
        found.low = std::min(found.low, value);
        found.high = std::max(found.high, value);
    };
    Interval a = {values[begin], values[begin]};
    Interval b = a;
    Interval c = a;
    Interval d = a;
    int i = begin;
    for (; i + 4 <= end; i += 4) {
        take(a, values[i]);
        take(b, values[i + 1]);
        take(c, values[i + 2]);
        take(d, values[i + 3]);
    }
    for (; i < end; ++i)
        take(a, values[i]);
    return {std::min({a.low, b.low, c.low, d.low}), std::max({a.high, b.high, c.high, d.high})};
}
