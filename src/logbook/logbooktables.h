#pragma once

#include "logbook/logbookbatch.h"

class QSqlDatabase;
class QSqlError;

/// A logbook in the tables of its file, whose schema is the newest.
namespace LogbookTables {

/// Adds all that the file holds to `content`. What can't be right there, as in a file that somebody has
/// written by hand, is taken for not known. False with the fault in `error`; `content` then holds a part.
bool read(const QSqlDatabase &database, LogbookContent *content, QSqlError *error);
/// Writes `batches`, in their order, as a whole or not at all; false with the fault in `error`.
bool write(const QSqlDatabase &database, const QVector<LogbookBatch> &batches, QSqlError *error);

} // namespace LogbookTables
