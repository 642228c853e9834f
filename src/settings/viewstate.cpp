#include "settings/viewstate.h"

ViewState::ViewState(QObject *parent)
    : QObject(parent)
{
}

void ViewState::setSwitches(const ViewSwitches &switches)
{
    if (switches == m_switches)
        return;
    m_switches = switches;
    emit changed();
}
