#include "desk/displaywindows.h"

#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "data/figuretext.h"
#include "displays/powerdisplay.h"
#include "printing/printstamp.h"
#include "displays/voltagecomparison.h"
#include "displays/voltagesource.h"
#include "desk/windowplace.h"
#include "graph/mdigraphchild.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "widgets/displayscale.h"

#include <QMainWindow>

#include <memory>

namespace {

constexpr QSize firstSize(470, 280);
constexpr QPoint firstDataPlace(6, 8);
constexpr QPoint firstCapacityPlace(2, 316);
constexpr QPoint firstPowerPlace(2, 670);
constexpr QSize firstVoltageSize(640, 360);
constexpr QPoint firstVoltagePlace(490, 316); // beside the others

CapacityEntry entryOf(const MdiGraphChild &child)
{
    const SeriesStore &store = child.store();
    const SeriesStore::Capacity capacity = store.capacity();
    CapacityEntry entry{capacity.energyAtMark, capacity.mode, child.windowNumber()};
    if (store.isEmpty())
        return entry;
    const Varnel3Data newest = store.records().last();
    entry.recorded = printedName(entry.number, Varnel3Data::deviceName(store.device()), child.sourceName())
        + QStringLiteral(", ") + FigureText::cells(newest.cellCount, newest.cellType);
    entry.staleSince = child.silentSince();
    return entry;
}

} // namespace

DisplayWindows::DisplayWindows(QMainWindow *window, ViewState *state)
    : QObject(window)
    , m_window(window)
    , m_state(state)
    , m_capacity(new CapacityDisplay(window))
    , m_power(new PowerDisplay(window))
    , m_data(new DataDisplay(window))
{
    m_capacity->setViewState(m_state);
    m_power->setViewState(m_state);
    m_data->setViewState(m_state);
    connect(m_capacity, SIGNAL(closed()), this, SIGNAL(capacityClosed()));
    connect(m_capacity, SIGNAL(entriesWanted()), this, SIGNAL(capacitiesWanted()));
    connect(m_power, SIGNAL(closed()), this, SIGNAL(powerClosed()));
    connect(m_data, SIGNAL(closed()), this, SIGNAL(dataClosed()));
}

std::array<QWidget *, 3> DisplayWindows::lasting() const
{
    return {m_capacity, m_power, m_data};
}

void DisplayWindows::setKeys(const QList<QAction *> &actions)
{
    m_keys = actions;
    for (QWidget *display : lasting())
        display->addActions(actions);
}

// Only the minimised state goes: a maximised display stays so.
void DisplayWindows::setShown(QWidget *display, bool shown)
{
    if (shown) {
        settle(display);
        display->setWindowState(display->windowState() & ~Qt::WindowMinimized);
    }
    display->setVisible(shown);
}

// Beside the other displays, shown or not, and below the menus and tool bars.
void DisplayWindows::settle(QWidget *display)
{
    if (!WindowPlace::wasMoved(*display))
        return;
    std::unique_ptr<QWidget> unmade; // it takes its place as soon as it is opened
    if (!m_voltage)
        unmade.reset(createVoltage());
    const QWidget *voltage = m_voltage ? static_cast<QWidget *>(m_voltage.data()) : unmade.get();
    QVector<QRect> taken;
    for (const QWidget *other : lasting()) {
        if (other != display)
            taken.append(WindowPlace::frameOf(*other));
    }
    if (voltage != display)
        taken.append(WindowPlace::frameOf(*voltage));
    if (m_window->isVisible()) {
        const QRect desk = m_window->centralWidget()->geometry();
        taken.append(QRect(m_window->pos(), m_window->mapToGlobal(desk.topRight())));
    }
    WindowPlace::settle(display, taken);
}

void DisplayWindows::showData(bool shown)
{
    setShown(m_data, shown);
}

void DisplayWindows::showCapacity(bool shown)
{
    setShown(m_capacity, shown);
}

void DisplayWindows::showPower(bool shown)
{
    setShown(m_power, shown);
}

void DisplayWindows::showVoltage(bool shown, Keyboard keyboard)
{
    if (m_voltage) {
        disconnect(m_voltage, SIGNAL(closed()), this, SIGNAL(voltageClosed())); // one is replaced: no switch
        m_voltage->close();
        m_voltage.clear();
    }
    if (!shown)
        return;
    m_voltage = createVoltage();
    connect(m_voltage, SIGNAL(closed()), this, SLOT(onVoltageClosed()));
    connect(m_voltage, SIGNAL(closed()), this, SIGNAL(voltageClosed()));
    m_voltage->setAttribute(Qt::WA_ShowWithoutActivating, keyboard == LeavesKeyboard);
    setShown(m_voltage, true);
}

VoltageComparison *DisplayWindows::createVoltage()
{
    auto *comparison = new VoltageComparison(m_window);
    comparison->setViewState(m_state);
    comparison->setSource(m_source);
    comparison->addActions(m_keys);
    const QSize size(scaled(firstVoltageSize.width()), scaled(firstVoltageSize.height()));
    WindowPlace::restore(comparison, SettingsKey::voltageGroup, VarnelSettings(), size, firstVoltagePlace);
    return comparison;
}

void DisplayWindows::onVoltageClosed()
{
    VarnelSettings settings;
    WindowPlace::save(*m_voltage, SettingsKey::voltageGroup, &settings);
}

void DisplayWindows::updateVoltage()
{
    if (m_voltage)
        m_voltage->updateVoltage();
}

void DisplayWindows::updateComparisons()
{
    updateVoltage();
    if (m_capacity->isVisible())
        emit capacitiesWanted();
}

void DisplayWindows::hideAll()
{
    for (QWidget *display : lasting())
        display->hide();
    if (m_voltage)
        m_voltage->hide();
}

void DisplayWindows::showAsSwitched()
{
    const ViewSwitches &switches = m_state->switches();
    showData(switches.dataDisplay);
    showCapacity(switches.capacityComparison);
    showPower(switches.barDisplay);
    if (m_voltage && switches.voltageComparison)
        setShown(m_voltage, true);
}

void DisplayWindows::updateData(Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    m_data->updateData(record, windowNumber, useKeptRi);
}

void DisplayWindows::updatePower(Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    m_power->updateData(record, windowNumber, useKeptRi);
}

void DisplayWindows::setStaleSince(const QDateTime &since)
{
    m_data->setStaleSince(since);
    m_power->setStaleSince(since);
}

void DisplayWindows::clearCapacities()
{
    m_capacity->clear();
}

void DisplayWindows::addCapacity(const MdiGraphChild *child)
{
    m_capacity->addEntry(entryOf(*child));
    m_capacity->setWindowCount(child->windowNumber());
}

void DisplayWindows::refreshCapacity(const MdiGraphChild *child)
{
    m_capacity->changeEntry(entryOf(*child), child->windowNumber());
}

void DisplayWindows::printCapacity()
{
    emit capacitiesWanted(); // a hidden display knows them and their windows' names as of its last showing
    m_capacity->print();
}

void DisplayWindows::printVoltage()
{
    const std::unique_ptr<VoltageComparison> comparison(createVoltage());
    if (!m_state->switches().voltageComparison) // nobody sees what was chosen in one that is closed
        comparison->showAllCells();
    comparison->print();
}

void DisplayWindows::printPower()
{
    const QVector<PackVoltages> packs = m_source ? m_source->packs() : QVector<PackVoltages>();
    QString source; // of a window that is still there
    for (const PackVoltages &pack : packs) {
        if (pack.windowNumber == m_power->windowNumber())
            source = pack.source;
    }
    m_power->setSourceName(source);
    m_power->print();
}

void DisplayWindows::readPlaces(const VarnelSettings &settings)
{
    WindowPlace::place(
        m_data, settings.value(SettingsKey::dataDisplayPos), firstDataPlace); // its size is fixed
    WindowPlace::restore(m_capacity, SettingsKey::capacityGroup, settings, firstSize, firstCapacityPlace);
    WindowPlace::restore(m_power, SettingsKey::powerGroup, settings, firstSize, firstPowerPlace);
}

void DisplayWindows::writePlaces(VarnelSettings *settings)
{
    for (QWidget *display : lasting())
        settle(display); // the next start takes it for the user's wish
    settings->setValue(SettingsKey::dataDisplayPos, m_data->pos());
    WindowPlace::save(*m_capacity, SettingsKey::capacityGroup, settings);
    WindowPlace::save(*m_power, SettingsKey::powerGroup, settings);
    if (m_voltage)
        WindowPlace::save(*m_voltage, SettingsKey::voltageGroup, settings);
}
