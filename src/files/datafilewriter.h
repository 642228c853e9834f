#pragma once

#include <QString>

class QIODevice;
class RecordList;

/// What became of a save. When it failed, the file is as it was.
struct SaveResult {
    bool saved = false;
    int unreadable = 0; ///< records whose lines the reader will refuse: no mode letter, no known chemistry
    QString reason; ///< the system's words when it failed
};

/// Writes every record as one line to `device`, which is open. False when it did not take all of it.
bool writeRecords(QIODevice &device, const RecordList &records);

/// Saves the records as `fileName`. A regular file is replaced as a whole once all is on the disk, its mode kept and
/// links to it followed; anything else (a device, a pipe) is written in place.
SaveResult saveRecords(const QString &fileName, const RecordList &records);
