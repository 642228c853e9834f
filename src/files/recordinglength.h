#pragma once

class QString;

/// Seconds from the first record of a file of record lines to its last one, by the device's clock; -1 where
/// there is no such time. Reads 4 KiB of a regular file at either end.
int recordingLength(const QString &path);
