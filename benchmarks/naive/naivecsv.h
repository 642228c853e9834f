#pragma once

#include <QTextStream>

class SeriesStore;

/// Writes `store` as comma-separated values, a table as the program's, as one would write it first: a row
/// joined from a list of texts.
void naiveCsv(QTextStream *stream, const SeriesStore &store);
