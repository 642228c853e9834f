#pragma once

class QPoint;
class QSize;
class QString;
class QWidget;
class VarnelSettings;

/// Where display windows stand.
namespace WindowPlace {

/// Where a window of `size` pixels stands as long as nothing is saved: at `place`, which is given for 96 dpi
/// and the usual font size, moved so that the whole window is seen on the primary screen, its title included.
QPoint first(const QPoint &place, const QSize &size);

/// `place`, a frame position kept for a window of `size` pixels; where its title can no longer be reached
/// there, since the screen is gone or smaller, moved onto the primary screen.
QPoint reachable(const QPoint &place, const QSize &size);

/// Keeps size and place of `display` under `group`: while it is maximised those that it goes back to, and
/// that it is.
void save(const QWidget &display, const QString &group, VarnelSettings *settings);
/// Gives `display`, which is hidden, what is kept under `group`; `size` and first(`place`) while nothing is.
void restore(QWidget *display, const QString &group, const VarnelSettings &settings, const QSize &size,
    const QPoint &place);

} // namespace WindowPlace
