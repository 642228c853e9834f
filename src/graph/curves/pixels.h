#pragma once

#include <QtGlobal>

#include <qwt_scale_map.h>

/// The pixel that `value` falls on. Far outside any screen it stays at some place there, so that
/// sums of such numbers are integers too.
inline int pixelOf(const QwtScaleMap &map, double value)
{
    constexpr double far = 1e6;
    return qRound(qBound(-far, map.transform(value), far));
}
