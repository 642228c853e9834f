#pragma once

#include "data/varnel3data.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"

#include <QDateTime>
#include <QLocale>

#include <memory>

using Varnel = Varnel3Data;

/// A recording of 6 cells of LiPo as the reader would find it.
inline LogbookRecording sampleRecording(
    int day, int mode, int charge, int startMillivolts = 25000, int endMillivolts = 19800)
{
    LogbookRecording recording;
    recording.file = QStringLiteral("/r/2026-%1_%2.acp").arg(day).arg(mode);
    recording.start = QDateTime(QDate(2026, 1, 1), QTime(12, 0)).addDays(day);
    recording.port = QStringLiteral("COM3");
    recording.figures = {100, Varnel3Data::Varnel3, mode, 5, 6, 3600, charge, charge * 0.0222,
        startMillivolts, endMillivolts, 0, 20 + day, {}, 12, 3, Varnel3Data::Completed,
        QByteArray(LogbookFigures::curvePoints, 'x')};
    return recording;
}

/// An empty logbook. Base of a test class.
class BookRig {
protected:
    void renew()
    {
        QLocale::setDefault(QLocale::c());
        editor.reset();
        logbook = std::make_unique<Logbook>();
        editor = std::make_unique<LogbookEditor>(logbook.get());
    }
    qint64 add(const LogbookRecording &recording) const
    {
        logbook->take({recording, FileStamp{1, 1}, QByteArray("x")});
        return logbook->recordingOf(recording.file)->id;
    }
    /// A pack of 6 LiPo cells with full discharges by day and charge, the last of which ends with `spread`.
    qint64 addPack(const char *name, int capacity, const QVector<std::pair<int, int>> &discharges = {},
        int spread = 12) const
    {
        const qint64 id
            = editor->addPack({0, QString::fromLatin1(name), 5, 6, capacity, QStringLiteral("its note")});
        for (const auto &[day, charge] : discharges) {
            LogbookRecording recording = sampleRecording(day, Varnel3Data::Discharge, charge);
            recording.file = QStringLiteral("/r/%1%2.acp").arg(QLatin1String(name)).arg(day);
            recording.figures.spread = day == discharges.last().first ? spread : 12;
            editor->assign({add(recording)}, id);
        }
        return id;
    }

    std::unique_ptr<Logbook> logbook;
    std::unique_ptr<LogbookEditor> editor;
};
