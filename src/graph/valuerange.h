#pragma once

#include "graph/interval.h"

/// An interval of values that a plot area spans from its bottom to its top.
struct ValueRange {
    double low = 0.0;
    double high = 1.0;

    /// The part of the range that a zoom shows.
    ValueRange part(const Interval &share) const;

    /// The range of a current between `minimum` and `maximum`, which are counted in units of `unit`: with a
    /// tenth above a real course, from 0 for a constant one, and never so narrow that noise fills the plot.
    /// Values that are all negative get the same below zero.
    static ValueRange ofCurrent(double minimum, double maximum, double unit = 1.0);
    /// As ofCurrent(), but a small course around zero keeps its negative part.
    static ValueRange ofSlope(double minimum, double maximum, double unit);
    /// At least 3.5 degrees, both ends rounded up to whole ones.
    static ValueRange ofTemperature(double minimum, double maximum);
    /// A tenth of the course above and below.
    static ValueRange ofResistance(double minimum, double maximum);
    /// The scale of cells of `cellType` (V), widened where values lie outside.
    static ValueRange ofCells(double minimum, double maximum, int cellType);
};
