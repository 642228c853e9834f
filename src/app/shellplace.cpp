#include "app/shellplace.h"

#include "settings/varnelsettings.h"

#include <QMainWindow>
#include <QScreen>

namespace {

constexpr QSize firstSize(1180, 760); // before a size was ever saved
constexpr QSize frameRoom(16, 40); // of a small screen, for the frame: unknown before the window is shown

QString geometryKey()
{
    return QStringLiteral("mainwindow/geometry");
}

QString stateKey()
{
    return QStringLiteral("mainwindow/state");
}

} // namespace

void ShellPlace::save(const QMainWindow &shell, VarnelSettings *settings)
{
    settings->setValue(QStringLiteral("mainwindow/size"), shell.size());
    settings->setValue(QStringLiteral("mainwindow/pos"), shell.pos());
    settings->setValue(stateKey(), shell.saveState());
    settings->setValue(geometryKey(), shell.saveGeometry());
}

void ShellPlace::restore(QMainWindow *shell, const VarnelSettings &settings)
{
    shell->resize(firstSize.boundedTo(shell->screen()->availableSize() - frameRoom));
    shell->restoreGeometry(settings.value(geometryKey(), QByteArray()).toByteArray());
    shell->restoreState(settings.value(stateKey(), QByteArray()).toByteArray());
}
