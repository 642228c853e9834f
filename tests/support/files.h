#pragma once

#include "files/datafileloader.h"

#include <QDateTime>
#include <QFile>

/// All that is in the file; "unreadable" where it can't be opened.
inline QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// False when not all of `bytes` is in the file.
inline bool writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Makes a file look as if it was last written to at `time`.
inline bool setTime(const QString &name, const QDateTime &time)
{
    QFile file(name);
    return file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime);
}

/// The same, so many days ago.
inline bool makeOld(const QString &name, int days)
{
    return setTime(name, QDateTime::currentDateTime().addDays(-days));
}

/// The records of a data file; none where it is none.
inline RecordList loaded(const QString &name)
{
    DataFileLoader loader(name);
    loader.readAll();
    return loader.takeRecords();
}
