#include "logbook/logbookfile.h"

#include "logbook/logbookschema.h"
#include "logbook/logbooktables.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QThread>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <system_error>
#include <utility>

namespace {

constexpr char fileName[] = "logbook.sqlite";
constexpr int busyTime = 5000; // ms, for another program that writes; the driver's own patience
constexpr unsigned long busyStep = 10; // ms

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LogbookFile)
};

/// The lower byte of SQLite's codes.
enum Code {
    Perm = 3,
    Busy = 5,
    Locked = 6,
    NoMemory = 7,
    ReadOnly = 8,
    Error = 10,
    Full = 13,
    CantOpen = 14,
    Protocol = 15
};

/// What SQLite says of a disk or of another program, not of the file.
bool isPassing(int code)
{
    for (const int passing : {Perm, Busy, Locked, NoMemory, ReadOnly, Error, Full, CantOpen, Protocol}) {
        if ((code & 0xff) == passing)
            return true;
    }
    return false;
}

/// Without a code it has not come to SQLite.
bool isPassing(const QSqlError &error)
{
    return error.nativeErrorCode().isEmpty() || isPassing(error.nativeErrorCode().toInt());
}

bool isBusy(const QSqlError &error)
{
    return (error.nativeErrorCode().toInt() & 0xff) == Busy;
}

/// The file and what belongs to it while it is open.
QStringList parts(const QString &path)
{
    return {path, path + QStringLiteral("-wal"), path + QStringLiteral("-shm")};
}

bool run(const QSqlDatabase &database, const char *statement, QSqlError *error)
{
    QSqlQuery query(database);
    const bool good = query.exec(QString::fromLatin1(statement));
    *error = query.lastError();
    return good;
}

// SQLite has no patience of its own here while another program makes the file.
bool keepLog(const QSqlDatabase &database, QSqlError *error)
{
    const QDeadlineTimer end(busyTime);
    while (!run(database, "PRAGMA journal_mode = WAL", error)) {
        if (!isBusy(*error) || end.hasExpired())
            return false;
        QThread::msleep(busyStep);
    }
    return true;
}

/// The code with which a page could not be had, of what a check has found; 0 where it has found another
/// fault.
int codeIn(const QString &found)
{
    static const QRegularExpression code(QStringLiteral("error code[ =]([0-9]{1,9})"));
    return code.match(found).captured(1).toInt();
}

/// The words of SQLite, without the toolkit's.
QString reasonOf(const QSqlError &error)
{
    return error.databaseText().isEmpty() ? error.text() : error.databaseText();
}

} // namespace

LogbookFile::LogbookFile(const QString &folder)
    : m_folder(folder)
{
}

LogbookFile::~LogbookFile()
{
    disconnect();
}

QString LogbookFile::path() const
{
    return m_folder + QLatin1Char('/') + QLatin1String(fileName);
}

QStringList LogbookFile::backups() const
{
    QStringList names;
    const QFileInfoList files = QDir(m_folder).entryInfoList(
        {QStringLiteral("logbook-[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9].sqlite")}, QDir::Files,
        QDir::Name | QDir::Reversed);
    for (const QFileInfo &file : files)
        names += file.filePath();
    return names;
}

LogbookContent LogbookFile::open()
{
    LogbookContent content;
    QDir().mkpath(m_folder);
    if (canBeWritten())
        openForWriting(&content);
    else
        openForReading(&content);
    m_isReadOnly = !content.trouble.isEmpty();
    content.isReadOnly = m_isReadOnly;
    return content;
}

// A file that is not there, or empty, beside backups: a restoring was cut short, or somebody has lost it.
void LogbookFile::openForWriting(LogbookContent *content)
{
    if (QFileInfo(path()).size() == 0 && !backups().isEmpty())
        return restore(content);
    switch (connectTo(path(), content)) {
    case Fault::None:
        break;
    case Fault::Newer:
        content->trouble = Texts::tr("The logbook was written by a newer version and is only shown.");
        break;
    case Fault::Unavailable:
        *content = LogbookContent();
        content->trouble = Texts::tr("The logbook can't be kept: %1").arg(m_reason);
        break;
    case Fault::Unreadable:
        *content = LogbookContent();
        content->trouble = Texts::tr("The logbook can't be read: %1.")
                               .arg(QDir::toNativeSeparators(path()) + QStringLiteral(", ") + m_reason);
        break;
    case Fault::Damaged:
        restore(content);
        break;
    }
}

void LogbookFile::openForReading(LogbookContent *content)
{
    if (!QFileInfo::exists(path())) {
        content->trouble = Texts::tr("The logbook can't be kept: nothing can be written to %1.")
                               .arg(QDir::toNativeSeparators(m_folder));
        return;
    }
    const QString name = QDir::toNativeSeparators(path());
    const bool read
        = copyAside() && connectTo(m_copy->filePath(QLatin1String(fileName)), content) == Fault::None;
    content->trouble = read
        ? Texts::tr("The logbook is shown as it is and can't be kept: %1 can't be written.").arg(name)
        : Texts::tr("The logbook can't be read: %1.").arg(name);
}

LogbookFile::Written LogbookFile::write(const QVector<LogbookBatch> &batches, QString *reason)
{
    if (m_isReadOnly)
        return Written::Never;
    const bool careful = std::any_of(
        batches.begin(), batches.end(), [](const LogbookBatch &batch) { return batch.isUsers; });
    QSqlError error;
    run(database(), careful ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL", &error);
    if (LogbookTables::write(database(), batches, &error))
        return Written::Yes;
    *reason = reasonOf(error);
    return isPassing(error) ? Written::NotYet : Written::Never;
}

bool LogbookFile::wasWrittenByOthers()
{
    if (m_isReadOnly)
        return false;
    const int version = dataVersion();
    return std::exchange(m_dataVersion, version) != version;
}

bool LogbookFile::readAgain(LogbookContent *content) const
{
    QSqlError error;
    return LogbookTables::read(database(), content, &error);
}

// Made beside the others first: what fails half-way leaves them as they were.
bool LogbookFile::backUp(const QDate &day)
{
    const QString fresh = m_folder + QStringLiteral("/logbook-backup.new");
    QFile::remove(fresh);
    QSqlQuery query(database());
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(fresh);
    std::error_code error;
    QString name;
    if (query.exec()) {
        name = m_folder + QStringLiteral("/logbook-%1.sqlite").arg(day.toString(Qt::ISODate));
        std::filesystem::rename(fresh.toStdU16String(), name.toStdU16String(), error);
    } else {
        qWarning() << "The logbook was not copied:" << query.lastError().text();
        error = std::make_error_code(std::errc::io_error);
    }
    if (error) {
        QFile::remove(fresh);
        return false;
    }
    QStringList others = backups();
    others.removeAll(name); // this one stays, whatever the clock says
    for (int i = backupsKept - 1; i < others.size(); ++i)
        QFile::remove(others[i]);
    return true;
}

// A folder that takes no file takes no log beside the file either. Tried, since rights don't tell all.
bool LogbookFile::canBeWritten() const
{
    QFile file(path());
    return QTemporaryFile(m_folder + QStringLiteral("/logbook-XXXXXX.new")).open()
        && (!file.exists() || file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
}

LogbookFile::Fault LogbookFile::connectTo(const QString &path, LogbookContent *content)
{
    m_connection = QUuid::createUuid().toString();
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    database.setDatabaseName(path);
    return database.open() ? prepare(database, content) : faultOf(database.lastError());
}

LogbookFile::Fault LogbookFile::prepare(QSqlDatabase &database, LogbookContent *content)
{
    const Fault fault = check(database);
    if (fault != Fault::None)
        return fault;
    QSqlError error;
    const bool newer = LogbookSchema::versionOf(database) > LogbookSchema::newest();
    if (!newer
        && !(keepLog(database, &error) && run(database, "PRAGMA foreign_keys = ON", &error)
            && LogbookSchema::migrate(database, &error)))
        return faultOf(error);
    m_dataVersion = dataVersion();
    const bool read = LogbookTables::read(database, content, &error);
    if (newer)
        return Fault::Newer;
    return read ? Fault::None : faultOf(error);
}

// A page that the disk does not give, as from a scratched medium, is no fault of the file.
LogbookFile::Fault LogbookFile::check(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        return faultOf(query.lastError());
    const QString found = query.value(0).toString();
    if (found == QLatin1String("ok"))
        return Fault::None;
    m_reason = found.simplified();
    return isPassing(codeIn(found)) ? Fault::Unreadable : Fault::Damaged;
}

LogbookFile::Fault LogbookFile::faultOf(const QSqlError &error)
{
    m_reason = reasonOf(error);
    return isPassing(error) ? Fault::Unavailable : Fault::Damaged;
}

void LogbookFile::disconnect()
{
    m_versionQuery.reset();
    QSqlDatabase::removeDatabase(m_connection);
}

/// Where SQLite may write what belongs to it.
bool LogbookFile::copyAside()
{
    m_copy = std::make_unique<QTemporaryDir>();
    const QString copy = m_copy->filePath(QLatin1String(fileName));
    const bool copied = QFile::copy(path(), copy);
    QFile::copy(path() + QStringLiteral("-wal"), copy + QStringLiteral("-wal"));
    const QStringList copies = parts(copy);
    for (const QString &part : copies)
        QFile::setPermissions(part, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return copied;
}

/// Its new name; empty when it could not be given one.
QString LogbookFile::setAside() const
{
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    const QString aside = m_folder + QStringLiteral("/damaged-logbook_%1.sqlite").arg(time);
    const QStringList from = parts(path());
    const QStringList to = parts(aside);
    for (int i = 0; i < from.size(); ++i) {
        if (QFile::exists(from[i]) && !QFile::rename(from[i], to[i]))
            return QString();
    }
    return aside;
}

/// Puts the newest copy that is whole in the place of the damaged file, or an empty one.
void LogbookFile::restore(LogbookContent *content)
{
    disconnect();
    const bool wasThere = QFile::exists(path());
    const QString aside = QDir::toNativeSeparators(setAside());
    if (aside.isEmpty()) {
        *content = LogbookContent();
        content->trouble = Texts::tr("The logbook is damaged: %1").arg(QDir::toNativeSeparators(path()));
        return;
    }
    const QStringList sources = backups() + QStringList(QString());
    for (const QString &source : sources) {
        const Fault fault = restoreFrom(source, content);
        if (fault == Fault::Unavailable || fault == Fault::Unreadable) // the next start tries this copy again
            break;
        if (fault == Fault::None) {
            const QString copy = QDir::toNativeSeparators(source);
            if (!wasThere)
                content->told = source.isEmpty()
                    ? QString()
                    : Texts::tr("The logbook was missing. Packs, assignments and notes are those of the copy "
                                "%1; the recordings are read anew.")
                          .arg(copy);
            else
                content->told = source.isEmpty()
                    ? Texts::tr(
                        "The logbook was damaged and is made anew from the recordings. The damaged file is "
                        "now %1.")
                          .arg(aside)
                    : Texts::tr(
                        "The logbook was damaged. Packs, assignments and notes are those of the copy %2; the "
                        "recordings are read anew. The damaged file is now %1.")
                          .arg(aside, copy);
            return;
        }
    }
    content->trouble = Texts::tr("The logbook can't be kept: %1").arg(m_reason);
}

/// An empty file where `source` is empty. Nothing is left of it where it has a fault.
LogbookFile::Fault LogbookFile::restoreFrom(const QString &source, LogbookContent *content)
{
    *content = LogbookContent();
    Fault fault = Fault::None;
    if (!source.isEmpty() && QFileInfo(source).size() == 0)
        fault = Fault::Damaged;
    else if (!source.isEmpty() && !QFile::copy(source, path()))
        fault = Fault::Unavailable;
    else
        fault = connectTo(path(), content);
    if (fault == Fault::None)
        return fault;
    disconnect();
    const QStringList rest = parts(path());
    for (const QString &part : rest)
        QFile::remove(part);
    return fault;
}

QSqlDatabase LogbookFile::database() const
{
    return QSqlDatabase::database(m_connection, false);
}

// Asked every second, so that the question is understood once.
int LogbookFile::dataVersion()
{
    if (!m_versionQuery) {
        m_versionQuery = std::make_unique<QSqlQuery>(database());
        m_versionQuery->prepare(QStringLiteral("PRAGMA data_version"));
    }
    const bool answered = m_versionQuery->exec() && m_versionQuery->next();
    const int version = answered ? m_versionQuery->value(0).toInt() : 0;
    if (answered)
        m_versionQuery->finish(); // it would hold the file
    else
        m_versionQuery.reset(); // to be understood anew
    return version;
}
