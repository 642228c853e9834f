#include "graph/scene/timedivision.h"

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

bool isRoomFor(const QVector<int> &columns, int width, int stride)
{
    for (int i = stride; i < columns.size(); ++i) {
        if (columns[i] - columns[i - stride] < width)
            return false;
    }
    return true;
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

QVector<int> labelledTicks(const QVector<int> &columns, int width, int last)
{
    int stride = 1;
    while (!isRoomFor(columns, width, stride))
        ++stride;
    QVector<int> labelled;
    for (int i = 0; i < columns.size(); ++i) {
        if ((last - (columns.size() - 1 - i)) % stride == 0)
            labelled.append(i);
    }
    return labelled;
}
