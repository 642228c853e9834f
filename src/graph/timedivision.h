#pragma once

#include <QVector>

/// Times (s) at round seconds, minutes, hours or days that divide `from`..`to` into at most
/// `most` + 1 pieces. None for an empty range.
QVector<double> timeDivisions(double from, double to, int most);
