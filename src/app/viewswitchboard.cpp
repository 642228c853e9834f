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

ViewSwitchboard::ViewSwitchboard(
    ActionSet *actions, ViewState *state, DisplayWindows *displays, ShownRecord *shownRecord, QObject *parent)
    : QObject(parent)
    , m_actions(*actions)
    , m_state(state)
    , m_displays(displays)
    , m_shownRecord(shownRecord)
{
    connect(m_displays, SIGNAL(dataClosed()), this, SLOT(dataClosed()));
    connect(m_displays, SIGNAL(capacityClosed()), this, SLOT(barGraphClosed()));
    connect(m_displays, SIGNAL(voltageClosed()), this, SLOT(graphClosed()));
    connect(m_displays, SIGNAL(powerClosed()), this, SLOT(powerClosed()));
    for (ActionId id : {ActionId::HoldView, ActionId::DistinctLines})
        connect(m_actions[id], SIGNAL(toggled(bool)), this, SLOT(publish()));
}

void ViewSwitchboard::enableViews()
{
    m_actions.setRangeEnabled(ActionId::Data, ActionId::Average, true);
    // Closing the last window disabled these three too; " B " may still be on.
    if (m_actions.isChecked(ActionId::Balancer))
        enableBalancerSwitches(true);
    if (m_actions.isChecked(ActionId::Average))
        m_actions.setEnabled(ActionId::SelectedCells, false);
}

void ViewSwitchboard::disableViews()
{
    m_actions.setRangeEnabled(ActionId::Data, ActionId::Energy, false);
}

void ViewSwitchboard::showData(bool checked)
{
    publish();
    m_displays->showData(checked);
    finish();
}

void ViewSwitchboard::showBarGraph(bool checked)
{
    publish();
    m_displays->showCapacity(checked);
    finish();
}

void ViewSwitchboard::showGraph(bool checked)
{
    publish();
    m_displays->showVoltage(checked);
    finish();
}

void ViewSwitchboard::showPower(bool checked)
{
    publish();
    m_displays->showPower(checked);
    emit switched();
}

void ViewSwitchboard::showCurve()
{
    finish();
}

void ViewSwitchboard::cycleDelta(bool checked)
{
    ViewSwitches switches = m_state->switches();
    if (m_actions.isChecked(ActionId::Balancer))
        switches.rightAxis = checked ? RightAxis::Slope : RightAxis::None;
    else
        switches.rightAxis = next(switches.rightAxis);
    switches.delta = switches.rightAxis != RightAxis::None;
    m_actions.setChecked(ActionId::Delta, switches.delta);
    m_actions.setText(ActionId::Delta, deltaText(switches.rightAxis));
    m_state->setSwitches(switches);
    finish();
}

void ViewSwitchboard::switchBalancer(bool checked)
{
    enableBalancerSwitches(checked);
    if (checked) {
        ViewSwitches switches = m_state->switches();
        if (switches.rightAxis == RightAxis::Energy)
            switches.rightAxis = RightAxis::Slope;
        m_actions.setText(ActionId::Delta, deltaText(switches.rightAxis));
        m_state->setSwitches(switches);
    } else {
        m_actions.setChecked(ActionId::Average, false);
        m_actions.setChecked(ActionId::Power, false);
        m_displays->showPower(false);
    }
    publish();
    m_shownRecord->resendToDataDisplay();
    finish();
}

void ViewSwitchboard::switchAverage(bool checked)
{
    if (checked) {
        m_actions.setChecked(ActionId::Balancer, true);
        m_actions.setEnabled(ActionId::Energy, true);
        m_actions.setEnabled(ActionId::Power, true);
    }
    m_actions.setEnabled(ActionId::SelectedCells, !checked);
    publish();
    m_shownRecord->resendToDataDisplay();
    finish();
    emit switched();
}

void ViewSwitchboard::cycleCells()
{
    ViewSwitches switches = m_state->switches();
    switches.cellsShown = next(switches.cellsShown);
    m_actions.setText(ActionId::SelectedCells, QLatin1String(cellTexts[int(switches.cellsShown)]));
    m_state->setSwitches(switches);
    finish();
}

void ViewSwitchboard::cycleEnergy(int windowNumber)
{
    ViewSwitches switches = m_state->switches();
    switches.cellValue = next(switches.cellValue);
    m_actions.setText(ActionId::Energy, QLatin1String(energyTexts[int(switches.cellValue)]));
    m_actions.setChecked(ActionId::Energy, false);
    m_state->setSwitches(switches);
    m_shownRecord->resendToDisplays(windowNumber);
    emit switched();
}

void ViewSwitchboard::setBlackBackground(bool black)
{
    ViewSwitches switches = m_state->switches();
    switches.blackBackground = black;
    m_state->setSwitches(switches);
    m_displays->updateVoltage();
    emit repaintNeeded();
}

void ViewSwitchboard::publish()
{
    ViewSwitches switches = m_state->switches();
    switches.dataDisplay = m_actions.isChecked(ActionId::Data);
    switches.voltageComparison = m_actions.isChecked(ActionId::Graph);
    switches.capacityComparison = m_actions.isChecked(ActionId::BarGraph);
    switches.temperature = m_actions.isChecked(ActionId::Temperature);
    switches.delta = m_actions.isChecked(ActionId::Delta);
    switches.resistance = m_actions.isChecked(ActionId::Resistance);
    switches.balancer = m_actions.isChecked(ActionId::Balancer);
    switches.average = m_actions.isChecked(ActionId::Average);
    switches.barDisplay = m_actions.isChecked(ActionId::Power);
    switches.distinctLines = m_actions.isChecked(ActionId::DistinctLines);
    switches.holdView = m_actions.isChecked(ActionId::HoldView);
    m_state->setSwitches(switches);
}

void ViewSwitchboard::dataClosed()
{
    m_actions.setChecked(ActionId::Data, false);
    publish();
}

void ViewSwitchboard::barGraphClosed()
{
    m_actions.setChecked(ActionId::BarGraph, false);
    publish();
}

void ViewSwitchboard::graphClosed()
{
    m_actions.setChecked(ActionId::Graph, false);
    publish();
}

void ViewSwitchboard::powerClosed()
{
    m_actions.setChecked(ActionId::Power, false);
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
        m_actions.setEnabled(id, enabled);
}
