#pragma once

#include "data/varnel3data.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"

#include <QDateTime>

/// A recording of 6 cells of LiPo as the reader would find it.
inline LogbookRecording sampleRecording(
    int day, int mode, int charge, int startMillivolts = 25000, int endMillivolts = 19800)
{
    LogbookRecording recording;
    recording.file = QStringLiteral("/r/2026-%1_%2.acp").arg(day).arg(mode);
    recording.start = QDateTime(QDate(2026, 1, 1), QTime(12, 0)).addDays(day);
    recording.port = QStringLiteral("COM3");
    LogbookFigures &figures = recording.figures;
    figures.records = 100;
    figures.device = Varnel3Data::Varnel3;
    figures.mode = mode;
    figures.cellType = 5;
    figures.cells = 6;
    figures.duration = 3600;
    figures.charge = charge;
    figures.energy = charge * 0.0222;
    figures.startVoltage = startMillivolts;
    figures.endVoltage = endMillivolts;
    figures.resistance = 20 + day;
    figures.spread = 12;
    figures.lowestCell = 3;
    figures.end = Varnel3Data::Completed;
    figures.curve = QByteArray(LogbookFigures::curvePoints, 'x');
    return recording;
}

inline qint64 add(Logbook *logbook, const LogbookRecording &recording)
{
    logbook->take({recording, FileStamp{1, 1}, QByteArray("x")});
    return logbook->recordingOf(recording.file)->id;
}

/// A pack of 6 LiPo cells with full discharges by day and charge, the last of which ends with `spread`.
inline qint64 addPack(LogbookEditor *editor, Logbook *logbook, const char *name, int capacity,
    const QVector<std::pair<int, int>> &discharges, int spread = 12)
{
    LogbookPack pack;
    pack.name = QString::fromLatin1(name);
    pack.cellType = 5;
    pack.cells = 6;
    pack.capacity = capacity;
    pack.note = QStringLiteral("its note");
    const qint64 id = editor->addPack(pack);
    for (const auto &[day, charge] : discharges) {
        LogbookRecording recording = sampleRecording(day, Varnel3Data::Discharge, charge);
        recording.file = QStringLiteral("/r/%1%2.acp").arg(pack.name).arg(day);
        recording.figures.spread = day == discharges.last().first ? spread : 12;
        editor->assign({add(logbook, recording)}, id);
    }
    return id;
}
