#include "app/shellplace.h"

#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include <QMainWindow>
#include <QScreen>

namespace {

constexpr QSize firstSize(1180, 760); // before a size was ever saved
constexpr QSize frameRoom(16, 40); // of a small screen, for the frame: unknown before the window is shown

} // namespace

void ShellPlace::save(const QMainWindow &shell, VarnelSettings *settings)
{
    settings->setValue(SettingsKey::shellSize, shell.size());
    settings->setValue(SettingsKey::shellPos, shell.pos());
    settings->setValue(SettingsKey::shellState, shell.saveState());
    settings->setValue(SettingsKey::shellGeometry, shell.saveGeometry());
}

void ShellPlace::restore(QMainWindow *shell, const VarnelSettings &settings)
{
    shell->resize(firstSize.boundedTo(shell->screen()->availableSize() - frameRoom));
    shell->restoreGeometry(settings.value(SettingsKey::shellGeometry, QByteArray()).toByteArray());
    shell->restoreState(settings.value(SettingsKey::shellState, QByteArray()).toByteArray());
}
