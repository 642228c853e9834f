#include "graph/timedivision.h"

#include <cmath>

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

constexpr double steps[] = {1, 2, 5, 10, 15, 20, 30, minute, 2 * minute, 5 * minute, 10 * minute, 15 * minute,
    20 * minute, 30 * minute, hour, 2 * hour, 3 * hour, 4 * hour, 6 * hour, 12 * hour};

double stepFor(double length, int most)
{
    for (double step : steps) {
        if (length <= step * most)
            return step;
    }
    double step = day;
    while (length > step * most)
        step *= 2;
    return step;
}

} // namespace

QVector<double> timeDivisions(double from, double to, int most)
{
    QVector<double> times;
    if (!(to > from) || most < 1)
        return times;
    const double step = stepFor(to - from, most);
    for (double k = std::ceil(from / step); k * step <= to; ++k)
        times.append(k * step);
    return times;
}
