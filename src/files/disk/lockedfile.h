#pragma once

#include "files/disk/filesync.h"

#include <QString>

// A file that is locked against removal while a program writes it, as a journal's is. The lock
// goes with the program, however it ends.

struct CreatedFile {
    int descriptor = noDescriptor; ///< for appending
    bool exists = false; ///< the name is taken
    QString reason; ///< the system's words when it could not
};

/// Creates `fileName`, which must not exist, and locks it.
CreatedFile createLockedFile(const QString &fileName);
/// Appends up to `length` bytes at once and returns how many were taken; -1 on failure.
int appendBytes(int descriptor, const char *bytes, int length);
/// Cuts the file to `size` bytes.
bool cutFile(int descriptor, qint64 size);
/// Reads up to `length` bytes from `offset` on, whatever has become of the file's name; -1 on failure.
int readBytes(int descriptor, qint64 offset, char *bytes, int length);
/// `fileName` still leads to the open file: it was neither removed nor replaced.
bool isStillNamed(int descriptor, const QString &fileName);
void closeFile(int descriptor);
/// Some program, this one included, is writing `fileName`.
bool isBeingWritten(const QString &fileName);
/// Removes `fileName` unless some program is writing it.
bool removeUnlessWritten(const QString &fileName);
/// Moves `fileName` to the user's waste bin unless some program is writing it. It stays where there is no
/// bin.
bool discardUnlessWritten(const QString &fileName);
