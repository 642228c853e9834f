#pragma once

#include "app/actionset.h"

#include <QVector>

#include <memory>

class QMainWindow;
class QMdiSubWindow;
class QMenu;
class QToolBar;
class QWidget;

/// One place in a menu or a tool bar.
struct MenuEntry {
    enum Kind { Command, Gap, EnergyButton };
    Kind kind = Gap;
    ActionId action = ActionId::Separator;

    MenuEntry() = default;
    MenuEntry(ActionId id) // NOLINT: the tables read as lists of actions
        : kind(Command)
        , action(id)
    {
    }
    explicit MenuEntry(Kind k)
        : kind(k)
    {
    }
};

/// What stands in which menu and tool bar, and the functions that build them from it.
namespace ShellMenus {

extern const QVector<MenuEntry> file;
extern const QVector<MenuEntry> print;
extern const QVector<MenuEntry> tools;
extern const QVector<MenuEntry> help;
extern const QVector<MenuEntry> view; ///< the view switches, which the tool bar gives to the mouse only

/// Appends `entries` to `menu`, and returns it.
QMenu *fill(QMenu *menu, const QVector<MenuEntry> &entries, const ActionSet &actions);
/// Sub-menus of the window menu, which have no parent: of the background and of the current graph window's
/// frame.
struct SubMenus {
    std::unique_ptr<QMenu> background, frame;
};
/// Fills `menu` anew; `current` is the frame of the current graph window or null.
SubMenus fillWindowMenu(QMenu *menu, const ActionSet &actions, const QMdiSubWindow *current);
/// The bar of commands and view switches, added to the top of `window`.
QToolBar *createMainToolBar(QMainWindow *window, const ActionSet &actions);
/// Gives `second` a line of its own where `window` is too narrow for it beside `first`, and takes it back.
void fitToolBars(QMainWindow *window, QToolBar *first, QToolBar *second);

} // namespace ShellMenus
