#pragma once

#include <QDateTime>
#include <QString>

#include <array>

class Varnel3Data;

/// Cell voltages of one graph window at its newest record.
struct PackVoltages {
    static constexpr int maxCells = 16;

    int windowNumber = 0;
    QString device; ///< name of the device
    QString source; ///< file or port that the records come from
    bool hasCellData = false; ///< otherwise the window has nothing to compare
    int cellCount = 0; ///< 0..maxCells
    std::array<int, maxCells> voltages{}; ///< mV
    std::array<bool, maxCells> selected{}; ///< as selected in the graph window
    QDateTime staleSince; ///< valid while a live window waits for its line

    /// The voltages of `record`, nothing selected.
    static PackVoltages of(const Varnel3Data &record, int windowNumber);
};
