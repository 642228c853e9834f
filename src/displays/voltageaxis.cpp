#include "displays/voltageaxis.h"

namespace {

constexpr qint64 smallestSpan = 100; // mV
constexpr int wantedMarks = 5;

/// The smallest of 10, 20, 50, 100, ... that makes no more than the wanted marks of `span`.
qint64 roundStep(qint64 span)
{
    for (qint64 decade = 10;; decade *= 10)
        for (const int factor : {1, 2, 5})
            if (decade * factor * wantedMarks >= span)
                return decade * factor;
}

qint64 floorTo(qint64 value, qint64 step)
{
    return (value >= 0 ? value / step : -((-value + step - 1) / step)) * step;
}

} // namespace

VoltageAxis VoltageAxis::around(int lowest, int highest)
{
    // A line of hostile numbers must neither overflow nor ask for a million marks.
    constexpr qint64 limit = 1000000000;
    const qint64 low = qBound(-limit, qint64(lowest), limit);
    const qint64 high = qBound(-limit, qint64(highest), limit);
    const qint64 step = roundStep(qMax(smallestSpan, high - low));
    VoltageAxis axis;
    axis.step = int(step);
    axis.lower = int(floorTo(low - step, step)); // so that the lowest bar is one
    if (low >= 0)
        axis.lower = qMax(0, axis.lower);
    axis.upper = int(floorTo(high + step / 2, step) + step);
    return axis;
}

QVector<int> VoltageAxis::marks() const
{
    QVector<int> result;
    for (qint64 mark = lower; mark <= upper; mark += step)
        result.append(int(mark));
    return result;
}

int VoltageAxis::y(int voltage, int bottom, int top) const
{
    const double share = (double(qBound(lower, voltage, upper)) - lower) / (double(upper) - lower);
    return qRound(bottom - share * (bottom - top));
}
