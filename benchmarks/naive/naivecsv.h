#pragma once

#include <QTextStream>

class SeriesStore;

/// Writes `store` as comma-separated values, a table as the program's, as one would write it first, with
/// chains of arg().
void naiveCsv(QTextStream *stream, const SeriesStore &store);
