#include "graph/scene/valuerange.h"

#include "data/varnel3data.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double flat = 0.001; // less is no change
constexpr double narrow = 0.25; // less is noise
constexpr double narrowMargin = 0.125;
constexpr double wideFactor = 1.1;

Interval currentRange(double minimum, double maximum, bool keepNegative)
{
    if (maximum - minimum < flat)
        return {0.0, maximum >= narrow ? maximum * wideFactor : maximum + narrowMargin};
    if (maximum - minimum >= narrow)
        return {minimum, maximum * wideFactor};
    const double low = minimum - narrowMargin;
    return {low < 0 && !keepNegative ? 0.0 : low, maximum + narrowMargin};
}

Interval scaledRange(double minimum, double maximum, double unit, bool keepNegative)
{
    if (maximum < 0 || (maximum <= 0 && minimum < 0)) {
        const Interval mirrored = currentRange(-maximum / unit, -minimum / unit, false);
        return {-mirrored.high * unit, -mirrored.low * unit};
    }
    const Interval range = currentRange(minimum / unit, maximum / unit, keepNegative);
    return {range.low * unit, range.high * unit};
}

// Of what the course lacks of `least`, the share `below` goes below it.
Interval courseRange(double minimum, double maximum, double least, double below)
{
    constexpr double margin = 0.1; // of the course
    const double missing = std::max(0.0, least - (maximum - minimum));
    const double course = maximum - minimum + missing;
    const double low = minimum - missing * below - course * margin;
    return {minimum >= 0 ? std::max(0.0, low) : low, maximum + missing * (1 - below) + course * margin};
}

// With `minimum` at the share `below` of the height and `maximum` as far from its upper end as `above`.
Interval placedRange(double minimum, double maximum, double below, double above)
{
    const double course = maximum - minimum;
    const double span = course > 0 ? course / (1 - below - above) : std::max(2.0, std::abs(maximum) * 0.2);
    const double low = minimum - span * below;
    return {low, low + span};
}

// The least share of the height between an end of `taken` and a value at which the curve may rest. Values are
// whole: a short course rests at each of them, a longer one has too many to keep clear with all but its ends.
double clearance(const Interval &range, double minimum, double maximum, const Interval &taken)
{
    constexpr double shortCourse = 4;
    const double step = maximum - minimum <= shortCourse ? 1.0 : maximum - minimum;
    double least = 1.0;
    for (double value = minimum; value <= maximum; value += step) {
        for (double height : {taken.low, taken.high})
            least = std::min(least, std::abs(range.shareOf(value) - height));
    }
    return least;
}

} // namespace

Interval ValueRange::ofVoltage(double minimum, double maximum)
{
    return courseRange(minimum, maximum, 0.25, 0.5);
}

// A charge that stands still lies low, the voltage beside it in the middle.
Interval ValueRange::ofEnergy(double minimum, double maximum)
{
    return courseRange(minimum, maximum, 10, 0);
}

Interval ValueRange::ofCurrent(double minimum, double maximum, double unit)
{
    return scaledRange(minimum, maximum, unit, false);
}

Interval ValueRange::ofSlope(double minimum, double maximum, double unit)
{
    return scaledRange(minimum, maximum, unit, true);
}

Interval ValueRange::ofTemperature(double minimum, double maximum)
{
    constexpr double least = 3.5;
    const double missing = std::max(0.0, (least - (maximum - minimum)) / 2);
    const double low = std::ceil(minimum - missing);
    return {std::min(low, std::floor(minimum)), std::ceil(maximum + missing)};
}

Interval ValueRange::ofResistance(double minimum, double maximum, const Interval &taken)
{
    constexpr double places[] = {0.15, 0.25, 0.35}; // of the lowest value, and of the highest from above
    constexpr double enough = 0.05;
    Interval best;
    double clearest = -1.0;
    for (double below : places) {
        for (double above : places) {
            const Interval range = placedRange(minimum, maximum, below, above);
            const double clear = clearance(range, minimum, maximum, taken);
            if (clear >= enough)
                return range;
            if (clear > clearest)
                best = range;
            clearest = std::max(clearest, clear);
        }
    }
    return best;
}

Interval ValueRange::ofCells(double minimum, double maximum, int cellType)
{
    const double low = Varnel3Data::cellTypeScaleMin(cellType) / 1000.0;
    const double high = Varnel3Data::cellTypeScaleMax(cellType) / 1000.0;
    if (high <= low)
        return ofVoltage(minimum, maximum);
    return {std::min(low, minimum), std::max(high, maximum)};
}
