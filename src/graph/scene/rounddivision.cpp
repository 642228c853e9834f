#include "graph/scene/rounddivision.h"

#include "data/figuretext.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double little = 1e-9; // by which quotients and logarithms are off

double roundUp(double length)
{
    const double power = std::pow(10.0, std::floor(std::log10(length)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= length)
            return factor * power;
    return 10.0 * power;
}

} // namespace

RoundDivision::RoundDivision(const Interval &range, int most)
    : step(roundUp(range.length() / std::max(1, most)))
{
    const double high = range.high + little * step;
    for (double i = std::ceil(range.low / step - little); i * step <= high; ++i)
        places.append(i * step);
}

QString RoundDivision::text(double place) const
{
    return FigureText::fixed(place, std::max(0, int(std::ceil(-std::log10(step) - little))));
}
