#pragma once

#include <QLatin1String>

/// The three lines that both older column formats begin with.
struct ColumnHeader {
    static constexpr int lineCount = 3;
    static constexpr const char *chargerModes = "cdf";
    static constexpr const char *balancerModes = "etf";

    int cellTypeCode = 0; ///< chemistry as the device numbers it
    char mode = 0;
    int cellCount = 0; ///< whatever the file says

    /// Takes line `index` (0 to 2). False when it is no number, or its first letter none of `modes`.
    bool takeLine(int index, QLatin1String line, const char *modes);
};
