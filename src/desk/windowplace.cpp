#include "desk/windowplace.h"

#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include "widgets/displayscale.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include <utility>

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

// Of a display that does not stand where it belongs.
constexpr char movedProperty[] = "movedOntoScreen";

int covered(const QRect &rect, const QVector<QRect> &taken)
{
    int pixels = 0;
    for (const QRect &other : taken) {
        const QRect common = rect & other;
        pixels += common.width() * common.height();
    }
    return pixels;
}

// The least covering place, next to `wanted`: free ones begin at an edge of the screen or of what is there.
QPoint freePlace(const QRect &wanted, const QVector<QRect> &taken)
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    QVector<int> lefts{wanted.left(), area.left(), area.right() + 1 - wanted.width()};
    QVector<int> tops{wanted.top(), area.top(), area.bottom() + 1 - wanted.height()};
    for (const QRect &rect : taken) {
        lefts << rect.right() + 1 << rect.left() - wanted.width();
        tops << rect.bottom() + 1 << rect.top() - wanted.height();
    }
    QPoint best = wanted.topLeft();
    auto least = std::make_pair(covered(wanted, taken), 0);
    for (const int left : qAsConst(lefts)) {
        for (const int top : qAsConst(tops)) {
            const QRect rect(QPoint(left, top), wanted.size());
            const auto cost
                = std::make_pair(covered(rect, taken), (rect.topLeft() - wanted.topLeft()).manhattanLength());
            if (cost < least && area.contains(rect)) {
                least = cost;
                best = rect.topLeft();
            }
        }
    }
    return best;
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

void bringForward(QWidget *window)
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

void place(QWidget *display, const QVariant &saved, const QPoint &place)
{
    const QPoint wanted = saved.isValid() ? saved.toPoint() : QPoint(scaled(place.x()), scaled(place.y()));
    const QPoint found = saved.isValid() ? reachable(wanted, display->size()) : first(place, display->size());
    display->move(found);
    display->setProperty(movedProperty, found != wanted);
}

bool wasMoved(const QWidget &display)
{
    return display.property(movedProperty).toBool();
}

void settle(QWidget *display, const QVector<QRect> &taken)
{
    if (!wasMoved(*display))
        return;
    display->setProperty(movedProperty, false);
    display->move(freePlace(frameOf(*display), taken));
}

QRect frameOf(const QWidget &display)
{
    return {display.pos(), display.size() + QSize(scaled(frame.width()), scaled(frame.height()))};
}

void save(const QWidget &display, const QString &group, VarnelSettings *settings)
{
    settings->setValue(group + SettingsKey::inGroupMaximized, display.isMaximized());
    const bool usual = !(display.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized));
    const QRect normal = usual ? display.geometry() : display.normalGeometry();
    // Maximised ever since restore() has placed it, it knows of no frame yet: nothing has changed.
    const QRect kept(settings->value(group + SettingsKey::inGroupPos).toPoint(),
        settings->value(group + SettingsKey::inGroupSize).toSize());
    if (!usual && normal == kept)
        return;
    const QPoint border = display.geometry().topLeft() - display.pos();
    settings->setValue(group + SettingsKey::inGroupSize, normal.size());
    settings->setValue(group + SettingsKey::inGroupPos, normal.topLeft() - border);
}

void restore(QWidget *display, const QString &group, const VarnelSettings &settings, const QSize &size,
    const QPoint &place)
{
    const QSize room = QGuiApplication::primaryScreen()->availableVirtualSize();
    const QSize kept = settings.value(group + SettingsKey::inGroupSize, size).toSize();
    display->resize(kept.boundedTo(room - QSize(scaled(frame.width()), scaled(frame.height()))));
    WindowPlace::place(display, settings.value(group + SettingsKey::inGroupPos), place);
    if (settings.value(group + SettingsKey::inGroupMaximized).toBool())
        display->setWindowState(display->windowState() | Qt::WindowMaximized);
}

} // namespace WindowPlace
