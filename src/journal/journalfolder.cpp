#include "journal/journalfolder.h"

#include "files/disk/lockedfile.h"
#include "files/linesource.h"
#include "files/linetrimming.h"

#include "data/varnel3data.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr int largestEmpty = 4096; // bytes; what is larger holds records
constexpr char stampFormat[] = "yyyy-MM-dd_HH-mm-ss";
constexpr int stampLength = int(sizeof stampFormat) - 1;

QFileInfoList journals(const QString &path)
{
    const QStringList pattern{
        QStringLiteral("[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]_[0-9][0-9]-[0-9][0-9]-"
                       "[0-9][0-9]_*.acp")};
    // The names sort by time; an equal time is told apart by the rest of the name.
    return QDir(path).entryInfoList(pattern, QDir::Files | QDir::NoSymLinks, QDir::Name | QDir::Reversed);
}

} // namespace

JournalFolder::JournalFolder(const QString &path)
    : m_path(path)
{
}

QString JournalFolder::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
        + QStringLiteral("/recordings");
}

QString JournalFolder::fileName(const QDateTime &time, const QString &portName, int attempt) const
{
    const QDate day = time.date();
    const QTime clock = time.time();
    const QString stamp = QString::asprintf("%04d-%02d-%02d_%02d-%02d-%02d_", day.year(), day.month(),
        day.day(), clock.hour(), clock.minute(), clock.second());
    const QString number = attempt > 1 ? QLatin1Char('_') + QString::number(attempt) : QString();
    return m_path + QLatin1Char('/') + stamp + inNames(portName) + number + QStringLiteral(".acp");
}

QDateTime JournalFolder::startOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString name = info.completeBaseName();
    if (info.suffix() != QLatin1String("acp") || name.mid(stampLength, 1) != QLatin1String("_"))
        return QDateTime();
    return QDateTime::fromString(name.left(stampLength), QLatin1String(stampFormat));
}

QString JournalFolder::portOf(const QString &fileName)
{
    return startOf(fileName).isValid() ? QFileInfo(fileName).completeBaseName().mid(stampLength + 1)
                                       : QString();
}

// Anything but letters, digits and dashes would be at odds with some file system.
QString JournalFolder::inNames(const QString &portName)
{
    QString name = portName;
    for (QChar &c : name) {
        if (c > QLatin1Char('z') || (!c.isLetterOrNumber() && c != QLatin1Char('-')))
            c = QLatin1Char('_');
    }
    return name;
}

QStringList JournalFolder::files() const
{
    QStringList names;
    const QFileInfoList files = journals(m_path);
    for (const QFileInfo &info : files)
        names += info.filePath();
    return names;
}

qint64 JournalFolder::totalSize() const
{
    qint64 size = 0;
    const QFileInfoList files = journals(m_path);
    for (const QFileInfo &info : files)
        size += info.size();
    return size;
}

int JournalFolder::removeEmpty() const
{
    int removed = 0;
    const QFileInfoList files = journals(m_path);
    for (const QFileInfo &info : files) {
        if (!isBeingWritten(info.filePath()) && !isWorthKeeping(info.filePath()))
            removed += removeUnlessWritten(info.filePath());
    }
    return removed;
}

int JournalFolder::discardOlderThan(int days, const QDateTime &now) const
{
    if (days < 1)
        return 0;
    const QFileInfoList files = journals(m_path);
    QDateTime newest;
    for (const QFileInfo &info : files)
        newest = std::max(newest, info.lastModified());
    const QDateTime today = std::min(now, newest);
    int discarded = 0;
    for (const QFileInfo &info : files) {
        if (info.lastModified().daysTo(today) > days)
            discarded += discardUnlessWritten(info.filePath());
    }
    return discarded;
}

// What can't be read is not known to be empty, and stays.
bool JournalFolder::isWorthKeeping(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.size() > largestEmpty)
        return true;
    LineSource lines(file, largestEmpty);
    QLatin1String line;
    for (int records = 0;;) {
        const LineSource::Found found = lines.next(&line);
        if (found == LineSource::Found::Error)
            return true;
        if (found == LineSource::Found::End)
            return false;
        if (found == LineSource::Found::Line && Varnel3Data().parseLine(trimmedLine(line))
            && ++records == leastRecords)
            return true;
    }
}
