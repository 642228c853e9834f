#pragma once

#include "logbook/logbookbatch.h"

/// What the reader has found in `file`: a discharge of six cells.
inline LogbookEntry entry(const QString &file, const QString &port = QStringLiteral("COM3"), int cellType = 5,
    const QDateTime &start = QDateTime(QDate(2026, 3, 1), QTime(12, 0)))
{
    LogbookEntry found;
    found.recording.file = file;
    found.recording.port = port;
    found.recording.start = start;
    found.recording.figures.records = 9;
    found.recording.figures.mode = Varnel3Data::Discharge;
    found.recording.figures.cellType = cellType;
    found.recording.figures.cells = 6;
    found.stamp = {1234, 5678};
    found.beginning = QByteArrayLiteral("hash");
    return found;
}

inline LogbookPack namedPack(const QString &name, int capacity = 5000)
{
    return {LogbookPack::none, name, 5, 6, capacity, QStringLiteral("bought in May")};
}
