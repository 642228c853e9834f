#include "app/viewswitchboard.h"

#include "app/actionset.h"
#include "desk/displaywindows.h"
#include "desk/shownrecord.h"
#include "settings/viewstate.h"

#include <QAction>

namespace {

QString deltaText(RightAxis axis)
{
    return axis == RightAxis::Energy ? QStringLiteral(" mAh ") : QStringLiteral("  dV ");
}

const char *const cellTexts[] = {" S ", " + ", " - "};
const char *const energyTexts[] = {" Vc ", " Ah ", " Ri "};

/// The one after `value` of an enumeration of three, round and round.
template <typename Enum>
Enum next(Enum value)
{
    return Enum((int(value) + 1) % 3);
}

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
    ViewSwitches switches = state->switches();
    if (actions.isChecked(ActionId::Balancer))
        switches.rightAxis = checked ? RightAxis::Slope : RightAxis::None;
    else
        switches.rightAxis = next(switches.rightAxis);
    switches.delta = switches.rightAxis != RightAxis::None;
    actions.setChecked(ActionId::Delta, switches.delta);
    actions.setText(ActionId::Delta, deltaText(switches.rightAxis));
    state->setSwitches(switches);
    finish();
}

void ViewSwitchboard::switchBalancer(bool checked)
{
    enableBalancerSwitches(checked);
    if (checked) {
        ViewSwitches switches = state->switches();
        if (switches.rightAxis == RightAxis::Energy)
            switches.rightAxis = RightAxis::Slope;
        actions.setText(ActionId::Delta, deltaText(switches.rightAxis));
        state->setSwitches(switches);
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
    ViewSwitches switches = state->switches();
    switches.cellsShown = next(switches.cellsShown);
    actions.setText(ActionId::SelectedCells, QLatin1String(cellTexts[int(switches.cellsShown)]));
    state->setSwitches(switches);
    finish();
}

void ViewSwitchboard::cycleEnergy(int windowNumber)
{
    ViewSwitches switches = state->switches();
    switches.cellValue = next(switches.cellValue);
    actions.setText(ActionId::Energy, QLatin1String(energyTexts[int(switches.cellValue)]));
    actions.setChecked(ActionId::Energy, false);
    state->setSwitches(switches);
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
    switches.dataDisplay = actions.isChecked(ActionId::Data);
    switches.voltageComparison = actions.isChecked(ActionId::Graph);
    switches.capacityComparison = actions.isChecked(ActionId::BarGraph);
    switches.temperature = actions.isChecked(ActionId::Temperature);
    switches.delta = actions.isChecked(ActionId::Delta);
    switches.resistance = actions.isChecked(ActionId::Resistance);
    switches.balancer = actions.isChecked(ActionId::Balancer);
    switches.average = actions.isChecked(ActionId::Average);
    switches.barDisplay = actions.isChecked(ActionId::Power);
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

void ViewSwitchboard::enableBalancerSwitches(bool enabled)
{
    for (ActionId id : {ActionId::Energy, ActionId::SelectedCells, ActionId::Power})
        actions.setEnabled(id, enabled);
}
