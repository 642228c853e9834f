#include "displays/windowplace.h"

#include "displays/displayscale.h"

#include <QGuiApplication>
#include <QScreen>

namespace WindowPlace {

namespace {

constexpr QSize frame{8, 34}; // both sides together with the title, at most, in the usual desktops
constexpr QSize titleBar{120, 40}; // enough of it to take hold of

QPoint onPrimaryScreen(const QPoint &place, const QSize &size)
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    const int right = area.right() - size.width() - scaled(frame.width());
    const int bottom = area.bottom() - size.height() - scaled(frame.height());
    return {qMax(area.left(), qMin(place.x(), right)), qMax(area.top(), qMin(place.y(), bottom))};
}

} // namespace

QPoint first(const QPoint &place, const QSize &size)
{
    return onPrimaryScreen(QPoint(scaled(place.x()), scaled(place.y())), size);
}

QPoint reachable(const QPoint &place, const QSize &size)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        if (screen->availableGeometry().contains(QRect(place, titleBar)))
            return place;
    }
    return onPrimaryScreen(place, size);
}

} // namespace WindowPlace
