#pragma once

#include <QtGlobal>

/// What tells whether a file has changed.
struct FileStamp {
    qint64 size = -1; ///< bytes; -1: not read
    qint64 modified = 0; ///< ms since 1970 in UTC

    bool isKnown() const { return size >= 0; }
    bool operator==(const FileStamp &other) const { return size == other.size && modified == other.modified; }
    bool operator!=(const FileStamp &other) const { return !(*this == other); }
};
