#pragma once

#include "overlay/courses/overlaycourse.h"

#include <QPointF>
#include <QVector>

/// How a course is mapped to pixels: scale and origin of either direction.
struct CoursePlace {
    double perX = 1.0; ///< px for each unit along
    double x = 0.0; ///< px of 0
    double perY = 1.0;
    double y = 0.0;

    bool operator==(const CoursePlace &other) const
    {
        return perX == other.perX && x == other.x && perY == other.perY && y == other.y;
    }
};

/// The points of `value` of `course` along `axis` between the columns `left` and `right`, with a neighbour on
/// either side, in pixels: of neighbours on the same half column the first, lowest, highest and last, so that
/// drawn as a line they look like one through all. Where places jump about more than any device does, the ink
/// of each half column. Empty where the course has no such values.
QVector<QPointF> courseOutline(const OverlayCourse &course, OverlayAxis axis, OverlayValue value,
    const CoursePlace &place, int left, int right);
