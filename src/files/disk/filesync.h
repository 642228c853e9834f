#pragma once

#include <QtGlobal>

class QString;

// What the systems do differently about getting bytes onto the disk.

constexpr int noDescriptor = -1; ///< the descriptor of none

/// The end of a line in text files of this system.
#ifdef Q_OS_WIN
constexpr char lineEnd[] = "\r\n";
#else
constexpr char lineEnd[] = "\n";
#endif
constexpr int lineEndLength = int(sizeof lineEnd) - 1;

/// Waits until what was written to `descriptor` is on the disk. True where there is nothing to wait for
/// (pipes, devices); false when the disk did not take it.
bool syncToDisk(int descriptor);

/// Opens `folder` so that syncToDisk() makes a new name in it last; noDescriptor where that is not needed or
/// fails.
int openFolder(const QString &folder);

/// A second descriptor of the same open file; noDescriptor when that fails.
int duplicateDescriptor(int descriptor);

/// Opens what is no regular file for writing, without waiting for a reader of a pipe; noDescriptor when that
/// fails.
int openSpecialFile(const QString &fileName);
