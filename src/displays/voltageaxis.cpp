#include "displays/voltageaxis.h"

#include <qwt_scale_engine.h>

VoltageAxis VoltageAxis::around(int lowest, int highest)
{
    using Arithmetic = QwtScaleArithmetic;
    constexpr double smallestSpan = 100.0; // mV
    constexpr int wantedMarks = 5;
    constexpr int limit = 1000000000; // that hostile numbers do not overflow
    const int low = qBound(-limit, lowest, limit);
    const int high = qBound(-limit, highest, limit);
    const double step = Arithmetic::divideInterval(qMax(smallestSpan, double(high) - low), wantedMarks, 10);
    VoltageAxis axis;
    axis.step = int(step);
    axis.lower = int(Arithmetic::floorEps(low - step, step)); // so that the lowest bar is one
    if (low >= 0)
        axis.lower = qMax(0, axis.lower);
    axis.upper = int(Arithmetic::floorEps(high + step / 2, step) + step);
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
