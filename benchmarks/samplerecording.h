#pragma once

#include "data/records/recordlist.h"

#include <QByteArray>

constexpr int sampleCount = 262144; ///< records of a long recording: three days at one a second

/// Record `index` of a made-up charge of `cells` cells, one a second: every field in use, the same at every
/// call.
Varnel3Data sampleRecord(int index, int cells = 12);

/// The first `count` of them.
RecordList sampleRecording(int count, int cells = 12);

/// The first `count` of them, of twelve cells, as record lines, each ended by '\n'.
QByteArray sampleLines(int count);
