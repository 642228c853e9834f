#pragma once

#include <QLatin1String>

/// The three lines that both older column formats begin with.
struct ColumnHeader {
    static constexpr int lineCount = 3;

    struct Rules {
        const char *modes; ///< letters that the second line may begin with
        bool countConverts; ///< the third line must be a number; else what is none counts as 0
    };
    static constexpr Rules charger = {"cdf", true};
    static constexpr Rules balancer = {"etf", false};

    int cellTypeCode = 0; ///< chemistry as the device numbers it
    char mode = 0;
    int cellCount = 0; ///< whatever the file says

    /// Takes line `index` (0 to 2). False when it does not fit.
    bool takeLine(int index, QLatin1String line, const Rules &rules);
};
