#pragma once

#include "graph/seriesstore.h"

class QIODevice;

/// Writes a recording as comma-separated values for other programs: one header row with units, then one row a record,
/// in UTF-8 with '\n' line ends and decimal points, whatever the locale. Columns are the record's own fields in the
/// device's units, the cells of its widest record, and the derived series. A field that a
/// record does not have is left empty. False when `device` takes no more; its error text says why.
bool writeCsv(const SeriesStore &store, QIODevice *device);
