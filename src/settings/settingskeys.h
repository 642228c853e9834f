#pragma once

#include <QLatin1String>

/// What stands in the settings file under which name. Files of other versions have the same: a name stays.
namespace SettingsKey {

constexpr QLatin1String ports{"ports"};
constexpr QLatin1String sendTime{"sendTime"};
constexpr QLatin1String userWave{"/mp3/user_wave"}; ///< by hand only; true when absent
constexpr QLatin1String keepAwake{"power/keepAwake"}; ///< by hand only; true when absent

constexpr QLatin1String journalEnabled{"journal/enabled"};
constexpr QLatin1String journalMaxAge{"journal/maxAgeDays"};
constexpr QLatin1String journalToldSize{"journal/toldSize"}; ///< bytes of all journals when the user was told

constexpr QLatin1String lastDir{"global/lastDir"}; ///< the file opened or saved last
constexpr QLatin1String exportDir{"export/lastDir"};
constexpr QLatin1String recordingsDialog{"recordings/dialog"};

constexpr QLatin1String shellSize{"mainwindow/size"}; ///< written for other versions
constexpr QLatin1String shellPos{"mainwindow/pos"}; ///< so is this
constexpr QLatin1String shellState{"mainwindow/state"};
constexpr QLatin1String shellGeometry{"mainwindow/geometry"};
constexpr QLatin1String blackBackground{"mainwindow/black"};

constexpr QLatin1String dataDisplayPos{"datadisplay/pos"};
// Groups of a display: what stands in each is under the names below them.
constexpr QLatin1String capacityGroup{"capacitydisplay"};
constexpr QLatin1String powerGroup{"powerdisplay"};
constexpr QLatin1String voltageGroup{"voltagecomp"};
constexpr QLatin1String inGroupSize{"/size"};
constexpr QLatin1String inGroupPos{"/pos"};
constexpr QLatin1String inGroupMaximized{"/maximized"};

} // namespace SettingsKey
