#pragma once

#include <QLatin1String>

class QString;

/// The dialects of data files: the program's own and two older ones.
struct FileKind {
    enum Dialect { Records, ChargerColumns, BalancerColumns };

    /// What a file is by its name, with or without folder, and its first line.
    static Dialect of(const QString &fileName, QLatin1String firstLine);
    /// By its name it may be a data file.
    static bool isDataFile(const QString &fileName);
};
