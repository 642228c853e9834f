#pragma once

class QSqlDatabase;
class QSqlError;

/// The tables of a logbook's file. What only the user knows stands in `pack`, `recording` and `folder`, what
/// can be had again from the recordings in `reading` and `refused`.
namespace LogbookSchema {

/// The version that this program writes; an empty file has 0. Files of every version before it are brought
/// there, those of a later one are left as they are.
int newest();
/// The version that the file has; -1 when it can't be asked.
int versionOf(const QSqlDatabase &database);
/// Brings the file to version `target`, or leaves it as it was: false then, with the fault in `error`.
bool migrate(const QSqlDatabase &database, QSqlError *error, int target = newest());

} // namespace LogbookSchema
