#pragma once

#include <QLatin1String>

/// What stands in the settings file under which name. Files of other versions have the same: a name stays.
namespace SettingsKey {

/// Not every compiler counts the letters of a text beforehand.
template <int size>
constexpr QLatin1String key(const char (&text)[size])
{
    return QLatin1String(text, size - 1);
}

constexpr QLatin1String ports = key("ports");
constexpr QLatin1String sendTime = key("sendTime");
constexpr QLatin1String language
    = key("language"); ///< of the texts: "en", "pl", "de"; the system's when absent
constexpr QLatin1String userWave = key("/mp3/user_wave"); ///< by hand only; true when absent
constexpr QLatin1String keepAwake = key("power/keepAwake"); ///< by hand only; true when absent

constexpr QLatin1String journalEnabled = key("journal/enabled");
constexpr QLatin1String journalMaxAge = key("journal/maxAgeDays");
constexpr QLatin1String journalToldSize
    = key("journal/toldSize"); ///< bytes of all journals when the user was told

constexpr QLatin1String lastDir = key("global/lastDir"); ///< the file opened or saved last
constexpr QLatin1String exportDir = key("export/lastDir");
constexpr QLatin1String recordingsDialog = key("recordings/dialog");

constexpr QLatin1String shellSize = key("mainwindow/size"); ///< written for other versions
constexpr QLatin1String shellPos = key("mainwindow/pos"); ///< so is this
constexpr QLatin1String shellState = key("mainwindow/state");
constexpr QLatin1String shellGeometry = key("mainwindow/geometry");
constexpr QLatin1String blackBackground = key("mainwindow/black");
constexpr QLatin1String distinctLines = key("mainwindow/distinctLines");

constexpr QLatin1String dataDisplayPos = key("datadisplay/pos");
// Groups of a display: what stands in each is under the names below them.
constexpr QLatin1String capacityGroup = key("capacitydisplay");
constexpr QLatin1String powerGroup = key("powerdisplay");
constexpr QLatin1String voltageGroup = key("voltagecomp");
constexpr QLatin1String overlayGroup = key("overlay"); ///< the same names
constexpr QLatin1String logbookGroup = key("logbook");
constexpr QLatin1String inGroupSize = key("/size");
constexpr QLatin1String inGroupPos = key("/pos");
constexpr QLatin1String inGroupMaximized = key("/maximized");

// The logbook's window: widths of its parts, the header of its table, and what it shows.
constexpr QLatin1String logbookSides = key("logbook/sides");
constexpr QLatin1String logbookRows = key("logbook/rows");
constexpr QLatin1String logbookColumns = key("logbook/columns");
constexpr QLatin1String logbookPackColumn = key("logbook/packColumn");
constexpr QLatin1String logbookPackOrder = key("logbook/packOrder");
constexpr QLatin1String logbookQuantity = key("logbook/quantity");
constexpr QLatin1String logbookByDate = key("logbook/byDate");

} // namespace SettingsKey
