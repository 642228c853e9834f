#pragma once

#include "series/interval.h"

/// The values that a plot area spans from its bottom to its top, for values from `minimum` to `maximum`.
namespace ValueRange {

/// The range of a pack's voltage: a tenth of the course on either side, over a course of 0.25 V or more,
/// and never below 0 for values that are not.
Interval ofVoltage(double minimum, double maximum);
/// The same for a charge, over 10 mAh or more.
Interval ofEnergy(double minimum, double maximum);
/// The range of a current between `minimum` and `maximum`, which are counted in units of `unit`: with a
/// tenth above a real course, from 0 for a constant one, and never so narrow that noise fills the plot.
/// Values that are all negative get the same below zero.
Interval ofCurrent(double minimum, double maximum, double unit = 1.0);
/// As ofCurrent(), but a small course around zero keeps its negative part.
Interval ofSlope(double minimum, double maximum, double unit);
/// At least 3.5 degrees, both ends rounded up to whole ones, except that no value lies below.
Interval ofTemperature(double minimum, double maximum);
/// Places the values, which are whole, so that neither the lowest nor the highest is at the height of an
/// end of `taken`, and of a short course none between either: shares of the plot's height at which
/// another curve may rest.
Interval ofResistance(double minimum, double maximum, const Interval &taken);
/// The scale of cells of `cellType` (V), widened where values lie outside.
Interval ofCells(double minimum, double maximum, int cellType);

} // namespace ValueRange
