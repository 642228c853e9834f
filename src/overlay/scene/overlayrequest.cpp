#include "overlay/scene/overlayrequest.h"

#include "graph/scene/valuerange.h"

namespace {

constexpr double spreadUnit = 0.1; // V; cells drift by millivolts

Interval rangeOf(OverlayValue value, const Interval &course)
{
    switch (value) {
    case OverlayValue::Spread:
        return ValueRange::ofCurrent(course.low, course.high, spreadUnit);
    case OverlayValue::Current:
        return ValueRange::ofCurrent(course.low, course.high);
    case OverlayValue::Temperature:
        return ValueRange::ofTemperature(course.low, course.high);
    case OverlayValue::Resistance: // mOhm: whole ones as mAh
        return ValueRange::ofEnergy(course.low, course.high);
    default:
        return ValueRange::ofVoltage(course.low, course.high);
    }
}

void take(std::optional<Interval> *all, const Interval &more)
{
    if (*all)
        (*all)->take(more);
    else
        *all = more;
}

} // namespace

double OverlayRequest::offsetOf(int entry) const
{
    const OverlayCourse &course = *entries[entry].course;
    double offset = axis == OverlayAxis::Time ? entries[entry].shift : 0.0;
    if (linedUp && course.size() > 0)
        offset -= double(course.along(axis)[std::size_t(course.currentStart())]);
    return offset;
}

Interval OverlayRequest::wholePlaces() const
{
    std::optional<Interval> whole;
    for (int i = 0; i < entries.size(); ++i) {
        if (entries[i].course->size() == 0)
            continue;
        const Interval reach = entries[i].course->reach(axis);
        take(&whole, {reach.low + offsetOf(i), reach.high + offsetOf(i)});
    }
    return whole.value_or(Interval());
}

Interval OverlayRequest::wholeValues() const
{
    std::optional<Interval> course;
    for (const OverlayEntry &entry : entries) {
        if (entry.course->has(value))
            take(&course, entry.course->range(value));
    }
    return course ? rangeOf(value, *course) : Interval();
}
