#pragma once

#include <QString>

class DataFileLoader;

/// What the status bar says of a file that was read.
struct LoadOutcome {
    QString text; ///< empty while it is being read
    int timeout = 0; ///< ms; 0: until the next text
};
LoadOutcome loadOutcome(const DataFileLoader &loader);
