#pragma once

#include <QString>

#include <functional>

class QIODevice;

/// What became of writing a file. When it failed, the file is as it was.
struct WriteOutcome {
    bool written = false;
    QString reason; ///< the system's words when it failed
};

/// Writes a file's content to a device that is open; false when the device did not take all of it.
using FileContent = std::function<bool(QIODevice &device)>;

/// Writes `content` as `fileName`. A regular file is replaced as a whole once all is on the disk, its mode kept and
/// links to it followed; anything else (a device, a pipe) is written in place.
WriteOutcome writeWholeFile(const QString &fileName, const FileContent &content);
