#include "app/actionset.h"

#include <QAction>
#include <QCoreApplication>
#include <QFont>
#include <QIcon>
#include <QKeySequence>

#include <algorithm>
#include <iterator>

namespace {

enum Receiver { Nobody, Window, MdiArea, Application };
enum Flag : unsigned { Plain = 0, Checkable = 1, Checked = 2, Disabled = 4, BoldText = 8 };

struct ActionRow {
    ActionId id;
    const char *text;
    const char *icon; ///< name below ":/Icons/", or null
    const char *tip; ///< tool tip of a checkable action, status tip of any other
    QKeySequence::StandardKey key;
    Receiver receiver;
    const char *slot;
    unsigned flags;
    const char *name = nullptr; ///< of the object
};

#define TO(slot) SLOT(slot) // under its own name the formatter takes it for the end of a row

constexpr auto noKey = QKeySequence::UnknownKey;
constexpr unsigned figureSwitch = Checkable | BoldText;

/// A class, so that its texts are found under its translations' name.
struct ActionTable {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    inline static const ActionRow rows[] = {
        {ActionId::Open, QT_TR_NOOP("Open file"), "open.png", QT_TR_NOOP("Read data from file."),
            QKeySequence::Open, Window, TO(openFile()), Plain},
        {ActionId::SaveAs, QT_TR_NOOP("Save as"), "save.png", QT_TR_NOOP("Save data to file."),
            QKeySequence::Save, Window, TO(saveFile()), Plain},
        {ActionId::SaveSession, QT_TR_NOOP("Save sesion"), "saveAll.png",
            QT_TR_NOOP("Save all data as one session"), QKeySequence::SaveAs, Window, TO(saveSesion()),
            Plain},
        {ActionId::Preferences, QT_TR_NOOP("Preferences"), "preferences.png",
            QT_TR_NOOP("Aplications preferences."), QKeySequence::Preferences, Window, TO(preferences()),
            Checked},
        {ActionId::Exit, QT_TR_NOOP("E&xit"), "exit.png", QT_TR_NOOP("Exit the application."),
            QKeySequence::Quit, Window, TO(close()), Plain},
        {ActionId::Black, QT_TR_NOOP("Black"), nullptr, QT_TR_NOOP("Background color black."), noKey, Window,
            TO(setBlackBack()), Plain},
        {ActionId::White, QT_TR_NOOP("White"), nullptr, QT_TR_NOOP("Background color white."), noKey, Window,
            TO(setWhiteBack()), Plain},
        {ActionId::Close, QT_TR_NOOP("Cl&ose"), nullptr, QT_TR_NOOP("Close the active window"), noKey,
            MdiArea, TO(closeActiveSubWindow()), Plain},
        {ActionId::CloseAll, QT_TR_NOOP("Close &All"), nullptr, QT_TR_NOOP("Close all the windows"), noKey,
            MdiArea, TO(closeAllSubWindows()), Plain},
        {ActionId::Tile, QT_TR_NOOP("&Tile"), "tile.png", QT_TR_NOOP("Tile the windows"), noKey, MdiArea,
            TO(tileSubWindows()), Plain},
        {ActionId::Cascade, QT_TR_NOOP("&Cascade"), "stack.png", QT_TR_NOOP("Cascade the windows"), noKey,
            MdiArea, TO(cascadeSubWindows()), Plain},
        {ActionId::Next, QT_TR_NOOP("Ne&xt"), nullptr, QT_TR_NOOP("Move the focus to the next window"),
            QKeySequence::NextChild, MdiArea, TO(activateNextSubWindow()), Plain},
        {ActionId::Previous, QT_TR_NOOP("Pre&vious"), nullptr,
            QT_TR_NOOP("Move the focus to the previous window"), QKeySequence::PreviousChild, MdiArea,
            TO(activatePreviousSubWindow()), Plain},
        {ActionId::Recording, QT_TR_NOOP("Recording"), "record.png",
            QT_TR_NOOP("Recording data from com port."), noKey, Window, TO(recording()), Plain},
        {ActionId::PrintCapacity, QT_TR_NOOP("Capacity comparison"), nullptr,
            QT_TR_NOOP("Print capacity comparison."), noKey, Window, TO(printCapComp()), Plain},
        {ActionId::PrintVoltage, QT_TR_NOOP("Voltage comparison"), nullptr,
            QT_TR_NOOP("Print voltage comparison."), noKey, Window, TO(printVolComp()), Plain},
        {ActionId::PrintBars, QT_TR_NOOP("Bar display"), nullptr, QT_TR_NOOP("Print bar display."), noKey,
            Window, TO(printBarDisplay()), Plain},
        {ActionId::PrintPlot, QT_TR_NOOP("Active plot"), nullptr, QT_TR_NOOP("Print active plot."), noKey,
            Window, TO(printActivePlot()), Plain},
        {ActionId::Separator, nullptr, nullptr, nullptr, noKey, Nobody, nullptr, Plain},
        {ActionId::About, QT_TR_NOOP("&About"), nullptr, QT_TR_NOOP("Show the application's About box"),
            noKey, Window, TO(about()), Plain},
        {ActionId::AboutQt, QT_TR_NOOP("About &Qt"), nullptr, QT_TR_NOOP("Show the Qt library's About box"),
            noKey, Application, TO(aboutQt()), Plain},
        {ActionId::SetTime, QT_TR_NOOP("Set time"), "clock-icon.png", QT_TR_NOOP("Set time."), noKey, Window,
            TO(sendTime()), Plain},
        {ActionId::Data, QT_TR_NOOP(" DATA "), "data.png", QT_TR_NOOP("Show/hide display"), noKey, Window,
            TO(toolBarData(bool)), Checkable},
        {ActionId::Graph, QT_TR_NOOP("Graph"), "wyk.png", QT_TR_NOOP("Show/hide graph"), noKey, Window,
            TO(toolBarGraph(bool)), Checkable},
        {ActionId::BarGraph, QT_TR_NOOP("Bar Graph"), "wykbar.png", QT_TR_NOOP("Show/hide bar graph"), noKey,
            Window, TO(toolBarBarGraph(bool)), Checkable},
        {ActionId::Temperature, QT_TR_NOOP(" T "), nullptr, QT_TR_NOOP("Show/hide themparature"), noKey,
            Window, TO(toolBarTemp(bool)), figureSwitch | Checked},
        {ActionId::Delta, QT_TR_NOOP("  dV "), nullptr, QT_TR_NOOP("Show/hide dV"), noKey, Window,
            TO(toolBarDelta(bool)), figureSwitch | Checked},
        {ActionId::Resistance, QT_TR_NOOP(" Rw "), nullptr, QT_TR_NOOP("Show/hide cells internal resistance"),
            noKey, Window, TO(toolBarRw(bool)), figureSwitch | Checked},
        {ActionId::Balancer, QT_TR_NOOP(" B "), nullptr, QT_TR_NOOP("Balancer/Charger plot"), noKey, Window,
            TO(toolBarBalancer(bool)), figureSwitch},
        {ActionId::Average, QT_TR_NOOP(" Avg "), nullptr, QT_TR_NOOP("Cells/MinMax plot"), noKey, Window,
            TO(toolBarAvg(bool)), figureSwitch},
        {ActionId::SelectedCells, QT_TR_NOOP(" S "), nullptr, QT_TR_NOOP("Select cells"), noKey, Window,
            TO(toolBarSelectedCells()), figureSwitch | Disabled},
        {ActionId::Power, QT_TR_NOOP(" P% "), nullptr, QT_TR_NOOP("Show/hide power balancer"), noKey, Window,
            TO(toolBarPower(bool)), figureSwitch | Disabled},
        {ActionId::Energy, QT_TR_NOOP(" Vc "), nullptr,
            QT_TR_NOOP("Cells energy/voltage/internal cel resistance"), noKey, Window,
            TO(toolBarEnergy(bool)), figureSwitch | Disabled},
        {ActionId::StopProcess, QT_TR_NOOP("Stop process"), "stop_sign.png", QT_TR_NOOP("Stop process."),
            noKey, Window, TO(toolBarStop()), Plain},
        {ActionId::HoldView, QT_TR_NOOP("Hold view"), nullptr,
            QT_TR_NOOP("Graph windows keep zoom and cursor"), noKey, Nobody, nullptr, Checkable},
        {ActionId::DistinctLines, QT_TR_NOOP("Distinct lines"), nullptr,
            QT_TR_NOOP("Lines differ in dashes and lightness, not in hue alone; bars carry letters"), noKey,
            Nobody, nullptr, Checkable},
        {ActionId::Explain, QT_TR_NOOP("Explanations..."), nullptr,
            QT_TR_NOOP("Tells what the status bar and the title of the current graph show."), noKey, Window,
            TO(explain()), Plain, "explainAction"},
        {ActionId::OpenRecordings, QT_TR_NOOP("Open recordings..."), "open.png",
            QT_TR_NOOP("Open what was recorded from the devices, saved or not."), noKey, Nobody, nullptr,
            Plain, "openRecordingsAction"},
        {ActionId::Logbook, QT_TR_NOOP("Logbook"), nullptr,
            QT_TR_NOOP("What every pack has been through: its recordings, and how it fares."), noKey, Nobody,
            nullptr, Plain, "logbookAction"},
        {ActionId::ReopenClosed, QT_TR_NOOP("Reopen closed recording"), nullptr,
            QT_TR_NOOP("Open again the recording whose window was closed last."), noKey, Nobody, nullptr,
            Plain, "reopenClosedAction"},
        {ActionId::Overlay, QT_TR_NOOP("Overlay..."), "wyk.png",
            QT_TR_NOOP("Lay the curves of recordings over each other."), noKey, Nobody, nullptr, Plain,
            "overlayAction"},
        {ActionId::ExportCsv, QT_TR_NOOP("Export as CSV..."), "export.png",
            QT_TR_NOOP("Write the records of the current graph as a table for other programs."), noKey,
            Nobody, nullptr, Plain, "exportCsvAction"},
        {ActionId::SavePicture, QT_TR_NOOP("Save picture..."), "picture.png",
            QT_TR_NOOP("Write the current graph as its window shows it to a picture file."), noKey, Nobody,
            nullptr, Plain, "savePictureAction"},
        {ActionId::RemoteControl, QT_TR_NOOP("Remote control..."), "remote.png",
            QT_TR_NOOP("Operate the front panel of the charger."), noKey, Nobody, nullptr, Plain,
            "remoteControlAction"},
        {ActionId::UserGuide, QT_TR_NOOP("User guide"), nullptr,
            QT_TR_NOOP("Open the manual in your browser."), QKeySequence::HelpContents, Nobody, nullptr,
            Plain},
    };

    struct ViewKey {
        ActionId id;
        int key;
        const char *tip; ///< for the status bar; null where the tool tip does
    };
    inline static const ViewKey viewKeys[] = {
        {ActionId::Data, Qt::Key_D, QT_TR_NOOP("The large data display")},
        {ActionId::Graph, Qt::Key_G,
            QT_TR_NOOP("Voltage comparison: cell voltages of several windows side by side")},
        {ActionId::BarGraph, int(Qt::SHIFT) | int(Qt::Key_G),
            QT_TR_NOOP("Capacity comparison of the recordings")},
        {ActionId::Temperature, Qt::Key_T, QT_TR_NOOP("Curve of the temperature")},
        {ActionId::Delta, Qt::Key_V, QT_TR_NOOP("dV, energy or neither on the right axis")},
        {ActionId::Resistance, Qt::Key_R, QT_TR_NOOP("Curve of the internal resistance")},
        {ActionId::Balancer, Qt::Key_B,
            QT_TR_NOOP("Balancer view: the cells instead of the pack; in the data display their statistics")},
        {ActionId::Average, Qt::Key_A,
            QT_TR_NOOP("Maximum, average, minimum and spread instead of the cells")},
        {ActionId::SelectedCells, Qt::Key_S,
            QT_TR_NOOP("All cells, selected ones emphasised; + only the selected ones; - all but them")},
        {ActionId::Power, Qt::Key_P, QT_TR_NOOP("Bar display: bars of the cells' deviations")},
        {ActionId::Energy, Qt::Key_C,
            QT_TR_NOOP("The figure of each cell: voltage, charge (Ah) or resistance (Ri)")},
        {ActionId::HoldView, Qt::Key_H, nullptr},
        {ActionId::DistinctLines, Qt::Key_L, nullptr},
    };
};

constexpr auto &rows = ActionTable::rows;

#undef TO

static_assert(std::size(rows) == size_t(ActionId::Count), "one row an action");

void describe(QAction *action, const ActionRow &row)
{
    action->setObjectName(QLatin1String(row.name));
    action->setText(ActionTable::tr(row.text));
    if (row.icon)
        action->setIcon(QIcon(QStringLiteral(":/Icons/") + QLatin1String(row.icon)));
    if (row.flags & Checkable)
        action->setToolTip(ActionTable::tr(row.tip));
    else
        action->setStatusTip(ActionTable::tr(row.tip));
    if (row.key != noKey)
        action->setShortcuts(row.key);
    if (row.flags & BoldText)
        action->setFont(QFont(QStringLiteral("Arial"), 10, QFont::Bold));
    action->setCheckable(row.flags & Checkable);
    action->setChecked(row.flags & Checked);
    action->setEnabled(!(row.flags & Disabled));
}

/// A checkable action tells its slot the new state where the slot asks for it.
const char *signalFor(const ActionRow &row)
{
    return QByteArray(row.slot).endsWith("(bool)") ? SIGNAL(triggered(bool)) : SIGNAL(triggered());
}

} // namespace

ActionSet::ActionSet(QObject *window, QObject *mdiArea)
    : QObject(window)
{
    QObject *const receivers[] = {nullptr, window, mdiArea, qApp};
    for (const ActionRow &row : rows) {
        auto *action = new QAction(this);
        m_actions[size_t(row.id)] = action;
        if (!row.text) {
            action->setSeparator(true);
            continue;
        }
        describe(action, row);
        if (row.slot)
            connect(action, signalFor(row), receivers[row.receiver], row.slot);
    }
    for (const ActionTable::ViewKey &view : ActionTable::viewKeys) {
        QAction *const action = (*this)[view.id];
        action->setShortcut(view.key);
        action->setStatusTip(view.tip ? ActionTable::tr(view.tip) : action->toolTip());
    }
    (*this)[ActionId::Explain]->setShortcut(int(Qt::SHIFT) | int(Qt::Key_F1));
    (*this)[ActionId::Logbook]->setShortcut(int(Qt::CTRL) | int(Qt::Key_L));
    (*this)[ActionId::ReopenClosed]->setShortcut(int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_T));
    (*this)[ActionId::Overlay]->setShortcut(int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_L));
    showPaused(QString());
}

QList<QAction *> ActionSet::viewSwitches() const
{
    QList<QAction *> all;
    for (const ActionTable::ViewKey &view : ActionTable::viewKeys)
        all.append((*this)[view.id]);
    return all;
}

bool ActionSet::isChecked(ActionId id) const
{
    return (*this)[id]->isChecked();
}

void ActionSet::setChecked(ActionId id, bool checked) const
{
    (*this)[id]->setChecked(checked);
}

void ActionSet::setText(ActionId id, const QString &text) const
{
    (*this)[id]->setText(text);
}

void ActionSet::setEnabled(ActionId id, bool enabled) const
{
    (*this)[id]->setEnabled(enabled);
}

void ActionSet::showPaused(const QString &port) const
{
    QAction *action = (*this)[ActionId::Recording];
    action->setCheckable(!port.isEmpty());
    action->setChecked(!port.isEmpty());
    action->setToolTip(
        port.isEmpty() ? tr(
            "Pauses the port of the current window.\nWhat its device sends meanwhile is not recorded; what "
            "follows is a recording of its own.\nTo look closer, hold the view instead: key H.")
                       : tr("%1 is paused: what its device sends is not recorded. Press to go on.")
                             .arg(port));
}

void ActionSet::offer(ActionId id, const QString &reason) const
{
    QAction *action = (*this)[id];
    const auto *row
        = std::find_if(std::begin(rows), std::end(rows), [id](auto &one) { return one.id == id; });
    const QString tip = reason.isEmpty() ? ActionTable::tr(row->tip) : reason;
    action->setEnabled(reason.isEmpty());
    action->setStatusTip(tip);
    action->setToolTip(tip);
}

void ActionSet::setRangeEnabled(ActionId first, ActionId last, bool enabled) const
{
    for (auto id = size_t(first); id <= size_t(last); ++id)
        setEnabled(ActionId(id), enabled);
}

void ActionSet::enableWindowCommands(bool enabled) const
{
    for (ActionId id : {ActionId::SaveAs, ActionId::SaveSession, ActionId::Close, ActionId::CloseAll,
             ActionId::Tile, ActionId::Cascade, ActionId::Next, ActionId::Previous})
        setEnabled(id, enabled);
    (*this)[ActionId::Separator]->setVisible(enabled);
}
