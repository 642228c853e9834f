#include "app/viewswitchboard.h"

#include "app/actionset.h"
#include "desk/displaywindows.h"
#include "desk/shownrecord.h"
#include "settings/viewstate.h"

#include <QAction>

namespace {

QString deltaText(int mode)
{
    return mode == 2 ? QStringLiteral(" mAh ") : QStringLiteral("  dV ");
}

const char *const cellTexts[] = {" S ", " + ", " - "};
const char *const energyTexts[] = {" Vc ", " Ah ", " Ri "};

} // namespace

ViewSwitchboard::ViewSwitchboard(ActionSet *actionSet, ViewState *viewState, DisplayWindows *displayWindows,
    ShownRecord *record, QObject *parent)
    : QObject(parent)
    , actions(*actionSet)
    , state(viewState)
    , displays(displayWindows)
    , shownRecord(record)
{
    publish();
    connect(actions[ActionId::HoldView], SIGNAL(toggled(bool)), this, SLOT(publish()));
}

void ViewSwitchboard::enableViews()
{
    actions.setRangeEnabled(ActionId::Data, ActionId::Average, true);
    // Closing the last window disabled these three too; " B " may still be on.
    if (actions.isChecked(ActionId::Balancer))
        enableBalancerSwitches(true);
    if (actions.isChecked(ActionId::Average))
        actions.setEnabled(ActionId::SelectedCells, false);
}

void ViewSwitchboard::disableViews()
{
    actions.setRangeEnabled(ActionId::Data, ActionId::Energy, false);
}

void ViewSwitchboard::showData(bool checked)
{
    publish();
    displays->showData(checked);
    finish();
}

void ViewSwitchboard::showBarGraph(bool checked)
{
    publish();
    displays->showCapacity(checked);
    finish();
}

void ViewSwitchboard::showGraph(bool checked)
{
    publish();
    displays->showVoltage(checked);
    finish();
}

void ViewSwitchboard::showPower(bool checked)
{
    publish();
    displays->showPower(checked);
    emit switched();
}

void ViewSwitchboard::showCurve()
{
    finish();
}

void ViewSwitchboard::cycleDelta(bool checked)
{
    const ViewSwitches now = state->switches();
    int mode = checked ? 1 : 0;
    if (!actions.isChecked(ActionId::Balancer)) {
        mode = (now.deltaMode + 1) % 3;
        actions.setChecked(ActionId::Delta, mode != 0);
    }
    actions.setText(ActionId::Delta, deltaText(mode));
    setCellModes(now.cellSelectMode, now.energyMode, mode);
    finish();
}

void ViewSwitchboard::switchBalancer(bool checked)
{
    enableBalancerSwitches(checked);
    if (checked) {
        const ViewSwitches now = state->switches();
        actions.setText(ActionId::Delta, deltaText(1));
        setCellModes(now.cellSelectMode, now.energyMode, now.deltaMode == 2 ? 1 : now.deltaMode);
    } else {
        actions.setChecked(ActionId::Average, false);
        actions.setChecked(ActionId::Power, false);
        displays->showPower(false);
    }
    publish();
    shownRecord->resendToDataDisplay();
    finish();
}

void ViewSwitchboard::switchAverage(bool checked)
{
    if (checked) {
        actions.setChecked(ActionId::Balancer, true);
        actions.setEnabled(ActionId::Energy, true);
        actions.setEnabled(ActionId::Power, true);
    }
    actions.setEnabled(ActionId::SelectedCells, !checked);
    publish();
    shownRecord->resendToDataDisplay();
    finish();
    emit switched();
}

void ViewSwitchboard::cycleCells()
{
    const ViewSwitches now = state->switches();
    const int mode = (now.cellSelectMode + 1) % 3;
    actions.setText(ActionId::SelectedCells, QLatin1String(cellTexts[mode]));
    setCellModes(mode, now.energyMode, now.deltaMode);
    finish();
}

void ViewSwitchboard::cycleEnergy(int windowNumber)
{
    const ViewSwitches now = state->switches();
    const int mode = (now.energyMode + 1) % 3;
    actions.setText(ActionId::Energy, QLatin1String(energyTexts[mode]));
    actions.setChecked(ActionId::Energy, false);
    setCellModes(now.cellSelectMode, mode, now.deltaMode);
    shownRecord->resendToDisplays(windowNumber);
    emit switched();
}

void ViewSwitchboard::setBlackBackground(bool black)
{
    ViewSwitches switches = state->switches();
    switches.blackBackground = black;
    state->setSwitches(switches);
    displays->updateVoltage();
    emit repaintNeeded();
}

void ViewSwitchboard::publish()
{
    ViewSwitches switches = state->switches();
    switches.data = actions.isChecked(ActionId::Data);
    switches.graph = actions.isChecked(ActionId::Graph);
    switches.barGraph = actions.isChecked(ActionId::BarGraph);
    switches.temperature = actions.isChecked(ActionId::Temperature);
    switches.delta = actions.isChecked(ActionId::Delta);
    switches.resistance = actions.isChecked(ActionId::Resistance);
    switches.balancer = actions.isChecked(ActionId::Balancer);
    switches.average = actions.isChecked(ActionId::Average);
    switches.power = actions.isChecked(ActionId::Power);
    switches.holdView = actions.isChecked(ActionId::HoldView);
    state->setSwitches(switches);
}

void ViewSwitchboard::dataClosed()
{
    actions.setChecked(ActionId::Data, false);
    publish();
}

void ViewSwitchboard::barGraphClosed()
{
    actions.setChecked(ActionId::BarGraph, false);
    publish();
}

void ViewSwitchboard::graphClosed()
{
    actions.setChecked(ActionId::Graph, false);
    publish();
}

void ViewSwitchboard::powerClosed()
{
    actions.setChecked(ActionId::Power, false);
    publish();
}

void ViewSwitchboard::finish()
{
    publish();
    emit repaintNeeded();
    emit switched();
}

void ViewSwitchboard::setCellModes(int cellSelectMode, int energyMode, int deltaMode)
{
    ViewSwitches switches = state->switches();
    switches.cellSelectMode = cellSelectMode;
    switches.energyMode = energyMode;
    switches.deltaMode = deltaMode;
    state->setSwitches(switches);
}

void ViewSwitchboard::enableBalancerSwitches(bool enabled)
{
    for (ActionId id : {ActionId::Energy, ActionId::SelectedCells, ActionId::Power})
        actions.setEnabled(id, enabled);
}
