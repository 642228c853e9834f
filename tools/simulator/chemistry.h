#pragma once

#include <QString>
#include <QVector>

#include <array>

namespace sim {

/// What the simulated devices know of one kind of cell. Voltages are mV of one cell.
struct Chemistry {
    const char *name;
    int oldCode; ///< number that "Varnel 2" and "Varnel 2+" give it; 0: unknown to them
    int balancerCode; ///< number that "Tandor" gives it; 0: unknown to it
    double full; ///< constant-voltage limit of a charge
    double empty; ///< end of a discharge
    double
        peakDrop; ///< fall below the peak that ends a charge, for kinds charged without voltage limit; else 0
    double resistance; ///< mOhm of a cell of 1 Ah
    std::array<double, 11> rest; ///< rest voltage at 0, 10 .. 100 % charge, rising
};

/// All chemistries; the index is the number that "Varnel 3" gives it.
const QVector<Chemistry> &chemistries();
/// Index of `name`, in any case of letters; -1 when there is none.
int findChemistry(const QString &name);
/// Rest voltage in mV at a charge of `share` (0 empty, 1 full; beyond both
/// ends it goes on steeply, never below 0).
double restVoltage(const Chemistry &chemistry, double share);

} // namespace sim
