#include "displays/windowplace.h"

#include "settings/varnelsettings.h"

#include "displays/displayscale.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

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

// The settings' keys below a display's group.
const QLatin1String sizeKey{"/size"};
const QLatin1String placeKey{"/pos"};
const QLatin1String maximisedKey{"/maximized"};

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

void save(const QWidget &display, const QString &group, VarnelSettings *settings)
{
    settings->setValue(group + maximisedKey, display.isMaximized());
    const bool usual = !(display.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized));
    const QRect normal = usual ? display.geometry() : display.normalGeometry();
    // Maximised ever since restore() has placed it, it knows of no frame yet: nothing has changed.
    const QRect kept(settings->value(group + placeKey).toPoint(), settings->value(group + sizeKey).toSize());
    if (!usual && normal == kept)
        return;
    const QPoint border = display.geometry().topLeft() - display.pos();
    settings->setValue(group + sizeKey, normal.size());
    settings->setValue(group + placeKey, normal.topLeft() - border);
}

void restore(QWidget *display, const QString &group, const VarnelSettings &settings, const QSize &size,
    const QPoint &place)
{
    display->resize(settings.value(group + sizeKey, size).toSize());
    const QVariant saved = settings.value(group + placeKey);
    display->move(
        saved.isValid() ? reachable(saved.toPoint(), display->size()) : first(place, display->size()));
    if (settings.value(group + maximisedKey).toBool())
        display->setWindowState(display->windowState() | Qt::WindowMaximized);
}

} // namespace WindowPlace
