#pragma once

#include <QCoreApplication>
#include <QStringList>

class Logbook;
struct LogbookRecording;

/// What the table of recordings tells of each. Numbers follow the locale; what is not known is empty.
class RecordingColumns {
    Q_DECLARE_TR_FUNCTIONS(RecordingColumns)

public:
    enum Column {
        Start,
        Pack,
        Device,
        Port,
        Process,
        Chemistry,
        Cells,
        Duration,
        Charge,
        Energy,
        StartVoltage,
        EndVoltage,
        Temperature,
        Resistance,
        CellResistances,
        Spread,
        Ended,
        Note,
        File,
        count
    };

    static QString title(int column);
    static QString tip(int column);
    /// Texts as wide as most of the column's.
    static QStringList samples(int column);
    static bool isNumber(int column); ///< sorted by number(), and on the right of its cell
    static QString text(const Logbook &logbook, const LogbookRecording &recording, int column);
    /// In whatever unit the column has; NaN where it is not known.
    static double number(const LogbookRecording &recording, int column);
    /// All that is known, a line each.
    static QString allText(const Logbook &logbook, const LogbookRecording &recording);
    /// Such as "Pack 3, 2026-05-03 14:20": what a curve or a point of it is called.
    static QString label(const Logbook &logbook, const LogbookRecording &recording);
};
