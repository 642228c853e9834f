#pragma once

#include "series/interval.h"

#include <QString>
#include <QVector>

/// Round numbers on an axis, 1, 2, 5, 10, 20 ... times a power of ten apart.
struct RoundDivision {
    /// The smallest that divides the range into so many pieces or fewer; of an empty one 0.
    double step;
    QVector<double> places; ///< none in an empty range

    /// `most` pieces; fewer than one count as one.
    RoundDivision(const Interval &range, int most);
    /// With as many decimals as tell a place from the next.
    QString text(double place) const;
};
