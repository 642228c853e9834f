#pragma once

#include <limits>

/// `voltageSlope` of a record whose dV is not known yet. No device sends dV: whoever shows a record fills
/// it in.
constexpr int noVoltageSlope = std::numeric_limits<int>::min();
