#include "graph/valuerange.h"

#include "data/varnel3data.h"

#include <algorithm>
#include <cmath>
#include <iterator>

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

// Of what the course lacks of `least`, the share `below` goes below it.
ValueRange courseRange(double minimum, double maximum, double least, double below)
{
    constexpr double margin = 0.1; // of the course
    const double missing = std::max(0.0, least - (maximum - minimum));
    const double course = maximum - minimum + missing;
    const double low = minimum - missing * below - course * margin;
    return {minimum >= 0 ? std::max(0.0, low) : low, maximum + missing * (1 - below) + course * margin};
}

} // namespace

ValueRange ValueRange::part(const Interval &share) const
{
    return {low + (high - low) * share.low, low + (high - low) * share.high};
}

ValueRange ValueRange::ofVoltage(double minimum, double maximum)
{
    return courseRange(minimum, maximum, 0.25, 0.5);
}

// A charge that stands still lies low, the voltage beside it in the middle.
ValueRange ValueRange::ofEnergy(double minimum, double maximum)
{
    return courseRange(minimum, maximum, 10, 0);
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
    const double low = std::ceil(minimum - missing);
    return {minimum < low ? std::floor(minimum) : low, std::ceil(maximum + missing)};
}

// Three places with six heights: each end of what is taken can be near one of them only.
ValueRange ValueRange::ofResistance(double minimum, double maximum, const Interval &taken)
{
    constexpr double places[] = {0.15, 0.25, 0.35}; // of the lowest value, and of the highest from above
    constexpr double near = 0.05;
    const double course = maximum - minimum;
    const auto isFree = [&](double place) {
        const double highest = course > 0 ? 1 - place : place;
        for (double height : {taken.low, taken.high}) {
            if (std::abs(height - place) < near || std::abs(height - highest) < near)
                return false;
        }
        return true;
    };
    const double place = *std::find_if(std::begin(places), std::end(places) - 1, isFree);
    const double span = course > 0 ? course / (1 - 2 * place) : std::max(2.0, std::abs(maximum) * 0.2);
    const double low = minimum - span * place;
    return {low, low + span};
}

ValueRange ValueRange::ofCells(double minimum, double maximum, int cellType)
{
    const double low = Varnel3Data::cellTypeScaleMin(cellType) / 1000.0;
    const double high = Varnel3Data::cellTypeScaleMax(cellType) / 1000.0;
    if (high <= low)
        return ofVoltage(minimum, maximum);
    return {std::min(low, minimum), std::max(high, maximum)};
}
