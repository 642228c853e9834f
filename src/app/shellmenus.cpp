#include "app/shellmenus.h"

#include "widgets/mnemonics.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace ShellMenus {

namespace {

// Tables of plain values, made before main() at next to no cost.
// clazy:excludeall=non-pod-global-static

const MenuEntry gap;

const QVector<MenuEntry> mainToolBar = {ActionId::Open, ActionId::SaveAs, ActionId::Cascade, ActionId::Tile,
    gap, ActionId::Recording, ActionId::StopProcess, gap, ActionId::Data, ActionId::Graph, ActionId::BarGraph,
    gap, ActionId::Temperature, ActionId::Delta, ActionId::Resistance, gap, ActionId::Balancer,
    ActionId::Average, ActionId::SelectedCells, ActionId::Power, MenuEntry(MenuEntry::EnergyButton)};

const QVector<MenuEntry> background = {ActionId::White, ActionId::Black};

// What follows Recording and the background. The separator action goes with the commands on windows; an
// action stands in a menu once, where it was added last.
const QVector<MenuEntry> window = {gap, ActionId::Separator, ActionId::Close, ActionId::CloseAll, gap,
    ActionId::Tile, ActionId::Cascade, gap, ActionId::Next, ActionId::Previous, ActionId::Separator};

// Buttons with pictures or single letters, by what they do.
void speak(const QToolBar *bar, const ActionSet &actions, const MenuEntry &entry)
{
    if (entry.kind != MenuEntry::Command)
        return;
    if (QWidget *button = bar->widgetForAction(actions[entry.action]))
        button->setAccessibleName(actions[entry.action]->statusTip());
}

void addEnergyButton(QToolBar *bar, const ActionSet &actions)
{
    auto *button = new QToolButton(bar);
    button->setObjectName(QStringLiteral("energyAction"));
    button->setDefaultAction(actions[ActionId::Energy]);
    button->setAccessibleName(actions[ActionId::Energy]->statusTip());
    bar->addWidget(button);
}

// What the mouse does to the frame: Restore, Move, Size, Minimize and Maximize of the frame's own menu, whose
// first five they are.
void fillFrameMenu(QMenu *menu, const QMdiSubWindow *frame)
{
    constexpr int count = 5;
    menu->setEnabled(frame != nullptr);
    if (frame == nullptr)
        return;
    const QList<QAction *> entries = frame->systemMenu()->actions().mid(0, count);
    for (QAction *action : entries)
        menu->addAction(action);
}

} // namespace

const QVector<MenuEntry> file
    = {ActionId::Open, ActionId::SaveAs, ActionId::Preferences, ActionId::SetTime, gap, ActionId::Exit};

const QVector<MenuEntry> print
    = {ActionId::PrintCapacity, ActionId::PrintVoltage, ActionId::PrintBars, ActionId::PrintPlot};

const QVector<MenuEntry> tools = {ActionId::OpenRecordings, ActionId::ReopenClosed, ActionId::Logbook,
    ActionId::Overlay, gap, ActionId::ExportCsv, ActionId::SavePicture, gap, ActionId::RemoteControl,
    ActionId::StopProcess, ActionId::Explain};

const QVector<MenuEntry> help = {ActionId::UserGuide, gap, ActionId::About};

const QVector<MenuEntry> view
    = {ActionId::Data, ActionId::Graph, ActionId::BarGraph, gap, ActionId::Temperature, ActionId::Delta,
        ActionId::Resistance, gap, ActionId::Balancer, ActionId::Average, ActionId::SelectedCells,
        ActionId::Power, ActionId::Energy, gap, ActionId::HoldView, ActionId::DistinctLines};

QMenu *fill(QMenu *menu, const QVector<MenuEntry> &entries, const ActionSet &actions)
{
    for (const MenuEntry &entry : entries) {
        if (entry.kind == MenuEntry::Gap)
            menu->addSeparator();
        else
            menu->addAction(actions[entry.action]);
    }
    return menu;
}

SubMenus fillWindowMenu(QMenu *menu, const ActionSet &actions, const QMdiSubWindow *current)
{
    menu->clear();
    menu->addAction(actions[ActionId::Recording]);
    auto colours = std::make_unique<QMenu>(QCoreApplication::translate("MainWindow", "Background color"));
    fill(colours.get(), background, actions);
    new MenuMnemonics(colours.get());
    menu->addMenu(colours.get());
    fill(menu, window, actions);
    auto frame = std::make_unique<QMenu>(QCoreApplication::translate("MainWindow", "Graph window"));
    fillFrameMenu(frame.get(), current);
    menu->addMenu(frame.get());
    return {std::move(colours), std::move(frame)};
}

QToolBar *createMainToolBar(QMainWindow *mainWindow, const ActionSet &actions)
{
    auto *bar = mainWindow->addToolBar(QCoreApplication::translate("MainWindow", "Main Tool Bar"));
    bar->setObjectName(QStringLiteral("mainToolBar"));
    for (const MenuEntry &entry : mainToolBar) {
        if (entry.kind == MenuEntry::Gap)
            bar->addSeparator();
        else if (entry.kind == MenuEntry::EnergyButton)
            addEnergyButton(bar, actions);
        else
            bar->addAction(actions[entry.action]);
        speak(bar, actions, entry);
    }
    return bar;
}

void fitToolBars(QMainWindow *mainWindow, QToolBar *first, QToolBar *second)
{
    const bool sideBySide
        = !first->isHidden() && mainWindow->toolBarArea(first) == mainWindow->toolBarArea(second);
    const int width = (sideBySide ? first->sizeHint().width() : 0) + second->sizeHint().width();
    const bool fits = mainWindow->width() >= width;
    if (fits == mainWindow->toolBarBreak(second))
        fits ? mainWindow->removeToolBarBreak(second) : mainWindow->insertToolBarBreak(second);
}

} // namespace ShellMenus
