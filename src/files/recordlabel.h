#pragma once

#include <QCache>
#include <QSet>
#include <QString>

/// What the open dialog writes behind the name of a data file, for example " [Cha 6xLiPo]"; empty
/// for a file that can't be read or is none. Reads 4 KiB of a regular file at most, and that only
/// when `cache` does not hold its path.
///
/// `fromCache`, unless null, tells whether it did. Labels that are not empty go into `cache` at the cost of
/// their bytes and their paths': its limit should hold those of a large folder. Paths without a label
/// go into `failures`, unless null, and are not read again while they are in it.
QString recordLabel(QCache<QString, QString> &cache, const QString &path, bool *fromCache = nullptr,
    QSet<QString> *failures = nullptr);
