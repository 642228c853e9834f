#include "app/displaywindows.h"

#include "data/varnel3data.h"
#include "graph/mdigraphchild.h"
#include "settings/viewstate.h"

#include <QSettings>
#include <QWidget>

DisplayWindows::DisplayWindows(QWidget *window, ViewState *state)
    : QObject(window)
    , m_window(window)
    , m_state(state)
{
}

void DisplayWindows::showData(bool) { }

void DisplayWindows::showCapacity(bool) { }

void DisplayWindows::showPower(bool) { }

void DisplayWindows::showVoltage(bool) { }

void DisplayWindows::updateVoltage() { }

void DisplayWindows::updateData(Varnel3Data &, int, bool) { }

void DisplayWindows::updatePower(Varnel3Data &, int, bool) { }

void DisplayWindows::clearCapacities() { }

void DisplayWindows::addCapacity(const MdiGraphChild *) { }

void DisplayWindows::printCapacity() { }

void DisplayWindows::printVoltage() { }

void DisplayWindows::printPower() { }

void DisplayWindows::readPlaces(const QSettings &) { }

void DisplayWindows::writePlaces(QSettings *) const { }
