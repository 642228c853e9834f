#include "logbook/logbookschema.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <iterator>

namespace {

/// What makes a file of version n out of one of version n - 1; the first stands for 1. Never changed once
/// files of that version are in the world.
const char *const steps[] = {
    "CREATE TABLE pack(id INTEGER PRIMARY KEY, name TEXT NOT NULL, chemistry INTEGER NOT NULL,"
    " cells INTEGER NOT NULL, capacity INTEGER NOT NULL, note TEXT NOT NULL);"
    "CREATE TABLE recording(id INTEGER PRIMARY KEY, file TEXT NOT NULL UNIQUE,"
    " pack INTEGER REFERENCES pack(id) ON DELETE SET NULL, note TEXT NOT NULL);"
    "CREATE INDEX recording_pack ON recording(pack);"
    "CREATE TABLE folder(path TEXT PRIMARY KEY);"
    "CREATE TABLE reading(recording INTEGER PRIMARY KEY REFERENCES recording(id) ON DELETE CASCADE,"
    " size INTEGER, modified INTEGER, beginning BLOB, start INTEGER, approximate INTEGER, port TEXT,"
    " records INTEGER, device INTEGER, mode INTEGER, chemistry INTEGER, cells INTEGER, duration INTEGER,"
    " charge INTEGER, energy REAL, start_voltage INTEGER, end_voltage INTEGER, temperature INTEGER,"
    " resistance INTEGER, cell_resistances TEXT, spread INTEGER, lowest_cell INTEGER, ending INTEGER,"
    " curve BLOB);"
    "CREATE TABLE refused(file INTEGER PRIMARY KEY)",
};

bool execute(const QSqlDatabase &database, const QString &statement, QSqlError *error)
{
    QSqlQuery query(database);
    const bool good = query.exec(statement);
    *error = query.lastError();
    return good;
}

bool take(const QSqlDatabase &database, int version, QSqlError *error)
{
    const QStringList statements = QString::fromLatin1(steps[version]).split(QLatin1Char(';'));
    for (const QString &statement : statements) {
        if (!execute(database, statement, error))
            return false;
    }
    return execute(database, QStringLiteral("PRAGMA user_version = %1").arg(version + 1), error);
}

} // namespace

int LogbookSchema::newest()
{
    return int(std::size(steps));
}

int LogbookSchema::versionOf(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    return query.exec(QStringLiteral("PRAGMA user_version")) && query.next() ? query.value(0).toInt() : -1;
}

// Asked again inside: another program may have been at it first.
bool LogbookSchema::migrate(const QSqlDatabase &database, QSqlError *error, int target)
{
    if (versionOf(database) == target)
        return true;
    if (!execute(database, QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    bool good = true;
    for (int version = versionOf(database); good && version < target; ++version)
        good = version >= 0 && take(database, version, error);
    good = good && execute(database, QStringLiteral("COMMIT"), error);
    QSqlError ignored;
    if (!good)
        execute(database, QStringLiteral("ROLLBACK"), &ignored);
    return good;
}
