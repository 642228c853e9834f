#pragma once

#include <QVector>

/// A voltage axis with round marks that holds a range of voltages with some air around it.
struct VoltageAxis {
    int lower = 0; ///< mV
    int upper = 1000; ///< mV
    int step = 200; ///< mV between marks

    /// The axis for voltages from `lowest` to `highest`, mV. It shows at least
    /// 100 mV, so that noise stays small.
    static VoltageAxis around(int lowest, int highest);
    /// Marks from `lower` to `upper`, mV.
    QVector<int> marks() const;
    /// Where `voltage` lies on an axis drawn from y = `bottom` up to y = `top`;
    /// voltages outside lie on its ends.
    int y(int voltage, int bottom, int top) const;
};
