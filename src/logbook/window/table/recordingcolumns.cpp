#include "logbook/window/table/recordingcolumns.h"

#include "data/figuretext.h"
#include "data/timetext.h"
#include "data/varnel3data.h"
#include "logbook/logbook.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <cmath>
#include <limits>

namespace {

using Columns = RecordingColumns;

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
constexpr double thousand = 1000.0;

/// What holds nothing where it is 0.
double known(double value)
{
    return value != 0 ? value : unknown;
}

// Minutes will do, whatever the locale's short form of a time has.
QString startText(const LogbookRecording &recording)
{
    if (!recording.start.isValid())
        return QString();
    QString clock = QLocale().timeFormat(QLocale::ShortFormat);
    clock.remove(QStringLiteral(":ss"));
    const QString text = QLocale().toString(recording.start.date(), QLocale::ShortFormat) + QLatin1Char(' ')
        + QLocale().toString(recording.start.time(), clock);
    return recording.isStartApproximate ? QStringLiteral("≈ ") + text : text;
}

QString chemistryText(const LogbookRecording &recording)
{
    const int type = recording.figures.cellType;
    return type == Varnel3Data::noCellType ? QString() : Varnel3Data::cellTypeName(type);
}

QString cellResistances(const LogbookRecording &recording)
{
    QStringList texts;
    for (int i = 0; recording.figures.hasCellResistances() && i < recording.figures.cells; ++i)
        texts.append(FigureText::fixed(double(recording.figures.cellResistances[size_t(i)]), 1));
    return texts.join(QStringLiteral("  "));
}

QString fileText(const LogbookRecording &recording)
{
    const QString name = QFileInfo(recording.file).fileName();
    return recording.isGone ? RecordingColumns::tr("%1 (gone)").arg(name) : name;
}

/// Of a live recording the first record alone is known.
bool isMeasured(const LogbookRecording &recording)
{
    return recording.figures.records > 0 && !recording.isLive;
}

double startNumber(const LogbookRecording &r)
{
    return r.start.isValid() ? double(r.start.toMSecsSinceEpoch()) : unknown;
}

double firstCellResistance(const LogbookRecording &r)
{
    return r.figures.hasCellResistances() ? double(r.figures.cellResistances[0]) : unknown;
}

struct ColumnRow {
    const char *title;
    const char *tip;
    const char *sample;
    double (*number)(const LogbookRecording &r); ///< null for a column of texts
    QString (*text)(const LogbookRecording &r); ///< null: that of the number
    int decimals = 0;
};

const ColumnRow columnRows[] = {
    {QT_TRANSLATE_NOOP("RecordingColumns", "Start"),
        QT_TRANSLATE_NOOP("RecordingColumns", "When the process began; ≈ from the time of the file"), "",
        startNumber, startText},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Pack"),
        QT_TRANSLATE_NOOP("RecordingColumns", "The battery pack; grey with ?: the one to be offered"),
        "Long name of a pack", nullptr, nullptr},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Device"),
        QT_TRANSLATE_NOOP("RecordingColumns", "The charger that sent the records"), "Varnel 2+ ", nullptr,
        [](const LogbookRecording &r) {
            return r.figures.device == Varnel3Data::NoDevice ? QString()
                                                             : Varnel3Data::deviceName(r.figures.device);
        }},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Port"),
        QT_TRANSLATE_NOOP("RecordingColumns", "The serial port, from the name of the file"), "COM10 ",
        nullptr, [](const LogbookRecording &r) { return r.port; }},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Process"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Charge, discharge, balancing, format or test"), "", nullptr,
        [](const LogbookRecording &r) {
            return r.figures.mode == Varnel3Data::NoMode ? QString() : Varnel3Data::modeName(r.figures.mode);
        }},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Chemistry"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Kind of the cells"), "LiPo ", nullptr, chemistryText},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Cells"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Number of cells in series"), "16",
        [](const LogbookRecording &r) { return known(r.figures.cells); }, nullptr},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Duration"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Hours, minutes and seconds to the end of the process"),
        "00:00:00 ", [](const LogbookRecording &r) { return isMeasured(r) ? r.figures.duration : unknown; },
        [](const LogbookRecording &r) {
            return isMeasured(r) ? elapsedTimeText(r.figures.duration) : QString();
        }},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Charge [mAh]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "What went in or came out, as in the capacity comparison"),
        "00 000", [](const LogbookRecording &r) { return isMeasured(r) ? r.figures.charge : unknown; },
        nullptr},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Energy [Wh]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Voltage times current, over the time"), "000.00",
        [](const LogbookRecording &r) { return known(r.figures.energy); }, nullptr, 2},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Start [V]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Voltage of the pack at the start"), "00.000",
        [](const LogbookRecording &r) { return known(r.figures.startVoltage / thousand); }, nullptr, 2},
    {QT_TRANSLATE_NOOP("RecordingColumns", "End [V]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Voltage of the pack at the end"), "00.000",
        [](const LogbookRecording &r) { return known(r.figures.endVoltage / thousand); }, nullptr, 2},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Max. [°C]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Highest temperature"), "000.0",
        [](const LogbookRecording &r) { return known(r.figures.highestTemperature / 10.0); }, nullptr, 1},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Resistance [mΩ]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Internal resistance of the pack"), "0000",
        [](const LogbookRecording &r) { return known(r.figures.resistance); }, nullptr},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Cells [mΩ]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Internal resistance of each cell, from the first on"),
        "0.0  0.0  0.0  0.0", firstCellResistance, cellResistances},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Spread [mV]"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Highest cell less the lowest, at the end"), "0000",
        [](const LogbookRecording &r) { return r.figures.spread < 0 ? unknown : r.figures.spread; }, nullptr},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Ended"),
        QT_TRANSLATE_NOOP("RecordingColumns", "How the process ended"), "Completed ", nullptr,
        Logbook::endText},
    {QT_TRANSLATE_NOOP("RecordingColumns", "Note"), QT_TRANSLATE_NOOP("RecordingColumns", "Your own words"),
        "Some words of the user", nullptr, [](const LogbookRecording &r) { return r.note.simplified(); }},
    {QT_TRANSLATE_NOOP("RecordingColumns", "File"),
        QT_TRANSLATE_NOOP("RecordingColumns", "Where the records are kept"), "2026-00-00_00-00-00_COM10.acp ",
        nullptr, fileText},
};

static_assert(sizeof columnRows / sizeof *columnRows == Columns::count, "a row each");

} // namespace

QString RecordingColumns::title(int column)
{
    return tr(columnRows[column].title);
}

QString RecordingColumns::tip(int column)
{
    return tr(columnRows[column].tip);
}

QStringList RecordingColumns::samples(int column)
{
    LogbookRecording longest;
    longest.start = QDateTime::fromString(QStringLiteral("2028-12-28T23:58"), Qt::ISODate);
    longest.isStartApproximate = true;
    if (column == Start)
        return {startText(longest)};
    if (column != Process)
        return {QString::fromUtf8(columnRows[column].sample)};
    QStringList names; // as long as the language has them
    for (int mode = Varnel3Data::Charge; mode < Varnel3Data::NoMode; ++mode)
        names.append(Varnel3Data::modeName(mode));
    return names;
}

bool RecordingColumns::isNumber(int column)
{
    return columnRows[column].number != nullptr;
}

double RecordingColumns::number(const LogbookRecording &recording, int column)
{
    return columnRows[column].number ? columnRows[column].number(recording) : unknown;
}

QString RecordingColumns::text(const Logbook &logbook, const LogbookRecording &recording, int column)
{
    if (column == Pack)
        return logbook.packName(recording.pack);
    const ColumnRow &row = columnRows[column];
    if (row.text)
        return row.text(recording);
    const double value = row.number(recording);
    return std::isnan(value) ? QString() : FigureText::fixed(value, row.decimals);
}

QString RecordingColumns::allText(const Logbook &logbook, const LogbookRecording &recording)
{
    QStringList lines;
    for (int column = 0; column < count; ++column) {
        const QString value = column == File ? QDir::toNativeSeparators(recording.file)
                                             : text(logbook, recording, column).trimmed();
        if (!value.isEmpty())
            lines.append(title(column) + QStringLiteral(": ") + value);
    }
    return lines.join(QLatin1Char('\n'));
}

QString RecordingColumns::label(const Logbook &logbook, const LogbookRecording &recording)
{
    const QString name = logbook.packName(recording.pack);
    const QStringList parts
        = {name.isEmpty() ? QFileInfo(recording.file).completeBaseName() : name, startText(recording)};
    return parts[1].isEmpty() ? parts[0] : parts.join(QStringLiteral(", "));
}
