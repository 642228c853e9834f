#pragma once

#include "series/interval.h"

/// The lowest and the highest of values[begin]..values[end - 1], of which there is at least one.
Interval extremesOf(const double *values, int begin, int end);
