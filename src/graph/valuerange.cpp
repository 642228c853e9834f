#include "graph/valuerange.h"

#include "data/varnel3data.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double flat = 0.001; // less is no change
constexpr double narrow = 0.25; // less is noise
constexpr double narrowMargin = 0.125;
constexpr double wideFactor = 1.1;

ValueRange currentRange(double minimum, double maximum, bool keepNegative)
{
    if (maximum - minimum < flat)
        return {0.0, maximum >= narrow ? maximum * wideFactor : maximum + narrowMargin};
    if (maximum - minimum >= narrow)
        return {minimum, maximum * wideFactor};
    const double low = minimum - narrowMargin;
    return {low < 0 && !keepNegative ? 0.0 : low, maximum + narrowMargin};
}

ValueRange scaledRange(double minimum, double maximum, double unit, bool keepNegative)
{
    if (maximum < 0 || (maximum <= 0 && minimum < 0)) {
        const ValueRange mirrored = currentRange(-maximum / unit, -minimum / unit, false);
        return {-mirrored.high * unit, -mirrored.low * unit};
    }
    const ValueRange range = currentRange(minimum / unit, maximum / unit, keepNegative);
    return {range.low * unit, range.high * unit};
}

} // namespace

ValueRange ValueRange::part(const Interval &share) const
{
    return {low + (high - low) * share.low, low + (high - low) * share.high};
}

ValueRange ValueRange::ofCurrent(double minimum, double maximum, double unit)
{
    return scaledRange(minimum, maximum, unit, false);
}

ValueRange ValueRange::ofSlope(double minimum, double maximum, double unit)
{
    return scaledRange(minimum, maximum, unit, true);
}

ValueRange ValueRange::ofTemperature(double minimum, double maximum)
{
    constexpr double least = 3.5;
    const double missing = std::max(0.0, (least - (maximum - minimum)) / 2);
    return {std::ceil(minimum - missing), std::ceil(maximum + missing)};
}

ValueRange ValueRange::ofResistance(double minimum, double maximum)
{
    constexpr double share = 0.1;
    const double course = maximum - minimum;
    const double margin = course > 0 ? course * share : std::max(1.0, std::abs(maximum) * share);
    return {minimum - margin, maximum + margin};
}

ValueRange ValueRange::ofCells(double minimum, double maximum, int cellType)
{
    const double low = Varnel3Data::cellTypeScaleMin(cellType) / 1000.0;
    const double high = Varnel3Data::cellTypeScaleMax(cellType) / 1000.0;
    if (high <= low)
        return ofCurrent(minimum, maximum);
    return {std::min(low, minimum), std::max(high, maximum)};
}
