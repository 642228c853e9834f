#pragma once

#include "data/recordlist.h"

#include <QByteArray>

/// Record `index` of a made-up charge of twelve cells, one a second: every field in use, the same at every call.
Varnel3Data sampleRecord(int index);

/// The first `count` of them.
RecordList sampleRecording(int count);

/// The first `count` of them as record lines, each ended by '\n'.
QByteArray sampleLines(int count);
