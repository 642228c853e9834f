#include "series/interval.h"

#include <algorithm>

Interval Interval::zoomed(double factor, double centre, double least, const Interval &whole) const
{
    if (length() <= 0 || whole.length() <= 0)
        return whole;
    const double wanted = std::clamp(length() / factor, std::min(least, whole.length()), whole.length());
    const double share = std::clamp((centre - low) / length(), 0.0, 1.0);
    const double start = low + length() * share - wanted * share;
    return Interval{start, start + wanted}.moved(0.0, whole);
}

Interval Interval::moved(double distance, const Interval &whole) const
{
    if (length() >= whole.length())
        return whole;
    const double start = std::clamp(low + distance, whole.low, whole.high - length());
    return {start, std::min(start + length(), whole.high)};
}
