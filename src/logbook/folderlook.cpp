#include "logbook/folderlook.h"

#include "files/columnheader.h"
#include "files/disk/lockedfile.h"
#include "files/filekind.h"
#include "files/linesource.h"
#include "files/linetrimming.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace {

constexpr qint64 settlingTime = 10000; // ms

FileStamp stampOf(const QFileInfo &info)
{
    return {info.size(), info.lastModified().toMSecsSinceEpoch()};
}

bool readBeginning(const QString &file, QByteArray *bytes)
{
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    *bytes = device.read(LogbookEntry::beginningLength);
    return device.error() == QFileDevice::NoError;
}

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

/// A file that begins with `bytes` is not `known`, be that grown.
bool isOther(const KnownFile &known, const QByteArray &bytes)
{
    if (!known.stamp.isKnown() || known.beginning.isEmpty())
        return false;
    const qint64 length = qMin<qint64>(known.stamp.size, LogbookEntry::beginningLength);
    return hashOf(bytes.left(int(length))) != known.beginning;
}

bool holdsRecord(LineSource *lines, QLatin1String line)
{
    for (LineSource::Found found = LineSource::Found::Line; found != LineSource::Found::End;
         found = lines->next(&line)) {
        if (found == LineSource::Found::Line && Varnel3Data().parseLine(trimmedLine(line)))
            return true;
    }
    return false;
}

bool holdsHeader(LineSource *lines, QLatin1String line, const ColumnHeader::Rules &rules)
{
    ColumnHeader header;
    for (int i = 0; i < ColumnHeader::lineCount; ++i) {
        if (i > 0 && lines->next(&line) != LineSource::Found::Line)
            return false;
        if (!header.takeLine(i, line, rules))
            return false;
    }
    return true;
}

/// A file that begins with `bytes` may be a recording.
bool mayBeRecording(const QString &file, QByteArray bytes)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    LineSource lines(device);
    QLatin1String line;
    if (lines.next(&line) != LineSource::Found::Line)
        return false;
    switch (FileKind::of(file, line)) {
    case FileKind::Records:
        return holdsRecord(&lines, line);
    case FileKind::ChargerColumns:
        return holdsHeader(&lines, line, ColumnHeader::charger);
    case FileKind::BalancerColumns:
        break;
    }
    return holdsHeader(&lines, line, ColumnHeader::balancer);
}

/// One look at files, which collects what is new.
class Look {
public:
    explicit Look(const LookQuestion &question)
        : m_question(question)
        , m_now(QDateTime::currentMSecsSinceEpoch())
    {
        m_news.folder = question.folder;
    }

    void take(const QString &file, const QFileInfo &info)
    {
        const FileStamp stamp = stampOf(info);
        m_news.isUnsettled |= qAbs(stamp.modified - m_now) < settlingTime
            && !m_question.live.contains(file); // a time far ahead is that of a wrong clock
        const auto known = m_question.known.constFind(file);
        const bool hasRow = known != m_question.known.constEnd();
        if (hasRow && m_question.gone.contains(file))
            m_news.back += file;
        if (hasRow ? known->stamp != stamp : !m_question.refused.contains(refusalKey(file, stamp)))
            takeNew(file, stamp, hasRow);
    }
    void takeGone(const QString &file)
    {
        if (!m_question.gone.contains(file))
            m_news.gone += file;
    }
    FolderNews &news() { return m_news; }

private:
    void takeNew(const QString &file, const FileStamp &stamp, bool hasRow)
    {
        if (m_question.holdsJournals && isBeingWritten(file)) {
            m_news.isUnsettled |= !m_question.live.contains(file);
            return;
        }
        QByteArray bytes;
        if (!readBeginning(file, &bytes))
            return;
        if (!mayBeRecording(file, bytes)) {
            m_news.refused += refusalKey(file, stamp);
            return;
        }
        const QByteArray beginning = hashOf(bytes);
        const QString before = hasRow ? QString() : formerName(beginning, stamp);
        if (before.isEmpty()) {
            m_news.found.append({file, stamp, beginning, isOther(m_question.known.value(file), bytes)});
        } else {
            m_news.moved.append({before, file});
            m_taken.insert(before);
        }
    }

    /// The file of a row that is this one and not there any more; empty without one.
    QString formerName(const QByteArray &beginning, const FileStamp &stamp) const
    {
        const QStringList rows = m_question.beginnings.values(beginning);
        for (const QString &row : rows) {
            if (m_question.known.value(row).stamp.size == stamp.size && !m_taken.contains(row)
                && !QFileInfo::exists(row))
                return row;
        }
        return QString();
    }

    const LookQuestion &m_question;
    const qint64 m_now;
    FolderNews m_news;
    QSet<QString> m_taken; // rows whose files were found elsewhere
};

} // namespace

qint64 folderTime(const QString &folder)
{
    const QFileInfo info(folder);
    return info.isDir() ? info.lastModified().toMSecsSinceEpoch() : 0;
}

// The time is taken first: what comes while the names are listed makes it another one.
FolderNews lookThrough(const LookQuestion &question)
{
    Look look(question);
    look.news().modified = folderTime(question.folder);
    QSet<QString> there;
    QDirIterator names(question.folder, QDir::Files);
    while (names.hasNext()) {
        const QString file = names.next();
        if (!FileKind::isDataFile(file))
            continue;
        there.insert(file);
        look.take(file, names.fileInfo());
    }
    for (auto row = question.known.begin(); row != question.known.end(); ++row) {
        if (row.key().startsWith(question.folder)
            && row.key().lastIndexOf(QLatin1Char('/')) == question.folder.size()
            && !there.contains(row.key()))
            look.takeGone(row.key());
    }
    return look.news();
}

FolderNews lookAt(const LookQuestion &question, const QStringList &files)
{
    Look look(question);
    for (const QString &file : files) {
        const QFileInfo info(file);
        if (info.isFile())
            look.take(file, info);
        else if (question.known.contains(file))
            look.takeGone(file);
    }
    return look.news();
}

qint64 refusalKey(const QString &file, const FileStamp &stamp)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(file.toUtf8());
    hash.addData(QByteArray::number(stamp.size) + ' ' + QByteArray::number(stamp.modified));
    return qFromLittleEndian<qint64>(hash.result().constData());
}
