#pragma once

#include <QVector>

class QPoint;
class QRect;
class QSize;
class QString;
class QVariant;
class QWidget;
class VarnelSettings;

/// Where display windows stand, and how windows come to sight.
namespace WindowPlace {

/// Shows `window` above others, with the keyboard, be it hidden, covered or minimised. A maximised one stays
/// so.
void bringForward(QWidget *window);

/// Where a window of `size` pixels stands as long as nothing is saved: at `place`, which is given for 96 dpi
/// and the usual font size, moved so that the whole window is seen on the primary screen, its title included.
QPoint first(const QPoint &place, const QSize &size);

/// `place`, a frame position kept for a window of `size` pixels; where its title can no longer be reached
/// there, since the screen is gone or smaller, moved onto the primary screen.
QPoint reachable(const QPoint &place, const QSize &size);

/// Moves `display`, which is hidden, to `saved`, a frame position, or, where that is invalid, to
/// first(`place`).
void place(QWidget *display, const QVariant &saved, const QPoint &place);

/// `display` could not be put where it belongs by place() or restore(), and has not been settled since.
bool wasMoved(const QWidget &display);

/// Moves `display`, which was moved, to where it covers none of `taken`, if there is such a place on the
/// primary screen, else as little of them as can be.
void settle(QWidget *display, const QVector<QRect> &taken);

/// What `display` takes of the screen, on which it may never have been.
QRect frameOf(const QWidget &display);

/// Keeps size and place of `display` under `group`: while it is maximised those that it goes back to, and
/// that it is.
void save(const QWidget &display, const QString &group, VarnelSettings *settings);
/// Gives `display`, which is hidden, what is kept under `group`; `size` and first(`place`) while nothing is.
void restore(QWidget *display, const QString &group, const VarnelSettings &settings, const QSize &size,
    const QPoint &place);

} // namespace WindowPlace
