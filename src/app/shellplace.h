#pragma once

class QMainWindow;
class VarnelSettings;

/// Where the main window stands, with its tool bars.
namespace ShellPlace {

void save(const QMainWindow &shell, VarnelSettings *settings);
/// Gives `shell`, which is hidden, what is kept; a size of its own, that fits the screen, while nothing is.
void restore(QMainWindow *shell, const VarnelSettings &settings);

} // namespace ShellPlace
