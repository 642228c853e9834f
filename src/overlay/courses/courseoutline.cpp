#include "overlay/courses/courseoutline.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fineness = 2.0; // columns a pixel
constexpr int mostPoints = 60000; // of lines that are worth drawing one by one
constexpr double far = 1e6; // px, outside any screen

struct Samples {
    const float *places;
    const float *values;
    const CoursePlace &place;

    double x(int i) const { return std::clamp(place.x + places[i] * place.perX, -far, far); }
    double yOf(double value) const { return std::clamp(place.y + value * place.perY, -far, far); }
    QPointF point(int i) const { return {x(i), yOf(double(values[i]))}; }
};

void add(QVector<QPointF> *outline, const QPointF &point)
{
    if (outline->isEmpty() || outline->last() != point)
        outline->append(point);
}

// The samples begin..end - 1 of one half column, or on one side of the picture.
void addStretch(QVector<QPointF> *outline, const Samples &samples, int begin, int end)
{
    const auto [low, high] = std::minmax_element(samples.values + begin, samples.values + end);
    const double x = samples.x(begin);
    add(outline, samples.point(begin));
    add(outline, {x, samples.yOf(double(*low))});
    add(outline, {x, samples.yOf(double(*high))});
    add(outline, samples.point(end - 1));
}

// Each half column from its lowest to its highest sample.
QVector<QPointF> inkOf(const Samples &samples, int first, int count, int left, int right)
{
    const int columns = int((right - left + 1) * fineness);
    QVector<Interval> ink(columns, Interval{far, -far});
    for (int i = first; i < count; ++i) {
        const double column = std::floor((samples.x(i) - left) * fineness);
        const double y = samples.yOf(double(samples.values[i]));
        if (column >= 0 && column < columns)
            ink[int(column)].take({y, y});
    }
    QVector<QPointF> outline;
    for (int column = 0; column < columns; ++column) {
        const double x = left + column / fineness;
        if (ink[column].low <= ink[column].high)
            outline << QPointF(x, ink[column].low) << QPointF(x, ink[column].high);
    }
    return outline;
}

} // namespace

QVector<QPointF> courseOutline(const OverlayCourse &course, OverlayAxis axis, OverlayValue value,
    const CoursePlace &place, int left, int right)
{
    if (!course.has(value))
        return {};
    const OverlayCourse::Points &places = course.along(axis);
    const Samples samples{places.data(), course.values(value).data(), place};
    const double lowest = left - 1.0;
    const double highest = right + 1.0;
    int begin = OverlayCourse::firstPoint(value);
    int count = course.size();
    if (course.isAscending(axis)) { // those inside and a neighbour
        const auto from = places.begin();
        const auto indexOf = [&](double x) {
            return int(std::lower_bound(from, places.end(), (x - place.x) / place.perX) - from);
        };
        begin = std::max(begin, indexOf(lowest) - 1);
        count = std::min(count, indexOf(highest) + 1);
    }
    const auto columnAt
        = [&](int i) { return std::floor(std::clamp(samples.x(i), lowest, highest) * fineness); };
    QVector<QPointF> outline;
    for (int next = begin; begin < count; begin = next) {
        const double column = columnAt(begin);
        while (next < count && columnAt(next) == column)
            ++next;
        addStretch(&outline, samples, begin, next);
        if (outline.size() > mostPoints)
            return inkOf(samples, OverlayCourse::firstPoint(value), course.size(), left, right);
    }
    return outline;
}
