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

#define TEXT(text) QT_TRANSLATE_NOOP("MainWindow", text)
#define TO(slot) SLOT(slot) // under its own name the formatter takes it for the end of a row

constexpr auto noKey = QKeySequence::UnknownKey;
constexpr unsigned figureSwitch = Checkable | BoldText;

const ActionRow rows[] = {
    {ActionId::Open, TEXT("Open file"), "open.png", TEXT("Read data from file."), QKeySequence::Open, Window,
        TO(openFile()), Plain},
    {ActionId::SaveAs, TEXT("Save as"), "save.png", TEXT("Save data to file."), QKeySequence::Save, Window,
        TO(saveFile()), Plain},
    {ActionId::SaveSession, TEXT("Save sesion"), "saveAll.png", TEXT("Save all data as one session"),
        QKeySequence::SaveAs, Window, TO(saveSesion()), Plain},
    {ActionId::Preferences, TEXT("Preferences"), "preferences.png", TEXT("Aplications preferences."),
        QKeySequence::Preferences, Window, TO(preferences()), Checked},
    {ActionId::Exit, TEXT("E&xit"), "exit.png", TEXT("Exit the application."), QKeySequence::Quit, Window,
        TO(close()), Plain},
    {ActionId::Black, TEXT("Black"), nullptr, TEXT("Background color black."), noKey, Window,
        TO(setBlackBack()), Plain},
    {ActionId::White, TEXT("White"), nullptr, TEXT("Background color white."), noKey, Window,
        TO(setWhiteBack()), Plain},
    {ActionId::Close, TEXT("Cl&ose"), nullptr, TEXT("Close the active window"), noKey, MdiArea,
        TO(closeActiveSubWindow()), Plain},
    {ActionId::CloseAll, TEXT("Close &All"), nullptr, TEXT("Close all the windows"), noKey, MdiArea,
        TO(closeAllSubWindows()), Plain},
    {ActionId::Tile, TEXT("&Tile"), "tile.png", TEXT("Tile the windows"), noKey, MdiArea,
        TO(tileSubWindows()), Plain},
    {ActionId::Cascade, TEXT("&Cascade"), "stack.png", TEXT("Cascade the windows"), noKey, MdiArea,
        TO(cascadeSubWindows()), Plain},
    {ActionId::Next, TEXT("Ne&xt"), nullptr, TEXT("Move the focus to the next window"),
        QKeySequence::NextChild, MdiArea, TO(activateNextSubWindow()), Plain},
    {ActionId::Previous, TEXT("Pre&vious"), nullptr, TEXT("Move the focus to the previous window"),
        QKeySequence::PreviousChild, MdiArea, TO(activatePreviousSubWindow()), Plain},
    {ActionId::Recording, TEXT("Recording"), "record.png", TEXT("Recording data from com port."), noKey,
        Window, TO(recording()), Plain},
    {ActionId::PrintCapacity, TEXT("Capacity comparison"), nullptr, TEXT("Print capacity comparison."), noKey,
        Window, TO(printCapComp()), Plain},
    {ActionId::PrintVoltage, TEXT("Voltage comparison"), nullptr, TEXT("Print voltage comparison."), noKey,
        Window, TO(printVolComp()), Plain},
    {ActionId::PrintBars, TEXT("Bar display"), nullptr, TEXT("Print bar display."), noKey, Window,
        TO(printBarDisplay()), Plain},
    {ActionId::PrintPlot, TEXT("Active plot"), nullptr, TEXT("Print active plot."), noKey, Window,
        TO(printActivePlot()), Plain},
    {ActionId::Separator, nullptr, nullptr, nullptr, noKey, Nobody, nullptr, Plain},
    {ActionId::About, TEXT("&About"), nullptr, TEXT("Show the application's About box"), noKey, Window,
        TO(about()), Plain},
    {ActionId::AboutQt, TEXT("About &Qt"), nullptr, TEXT("Show the Qt library's About box"), noKey,
        Application, TO(aboutQt()), Plain},
    {ActionId::SetTime, TEXT("Set time"), "clock-icon.png", TEXT("Set time."), noKey, Window, TO(sendTime()),
        Plain},
    {ActionId::Data, TEXT(" DATA "), "data.png", "Show/hide display", noKey, Window, TO(toolBarData(bool)),
        Checkable},
    {ActionId::Graph, TEXT("Graph"), "wyk.png", "Show/hide graph", noKey, Window, TO(toolBarGraph(bool)),
        Checkable},
    {ActionId::BarGraph, TEXT("Bar Graph"), "wykbar.png", "Show/hide bar graph", noKey, Window,
        TO(toolBarBarGraph(bool)), Checkable},
    {ActionId::Temperature, TEXT(" T "), nullptr, "Show/hide themparature", noKey, Window,
        TO(toolBarTemp(bool)), figureSwitch | Checked},
    {ActionId::Delta, TEXT("  dV "), nullptr, "Show/hide dV", noKey, Window, TO(toolBarDelta(bool)),
        figureSwitch | Checked},
    {ActionId::Resistance, TEXT(" Rw "), nullptr, "Show/hide cells internal resistance", noKey, Window,
        TO(toolBarRw(bool)), figureSwitch | Checked},
    {ActionId::Balancer, TEXT(" B "), nullptr, "Balancer/Charger plot", noKey, Window,
        TO(toolBarBalancer(bool)), figureSwitch},
    {ActionId::Average, TEXT(" Avg "), nullptr, "Cells/MinMax plot", noKey, Window, TO(toolBarAvg(bool)),
        figureSwitch},
    {ActionId::SelectedCells, TEXT(" S "), nullptr, "Select cells", noKey, Window, TO(toolBarSelectedCells()),
        figureSwitch | Disabled},
    {ActionId::Power, TEXT(" P% "), nullptr, "Show/hide power balancer", noKey, Window,
        TO(toolBarPower(bool)), figureSwitch | Disabled},
    {ActionId::Energy, TEXT(" Vc "), nullptr, "Cells energy/voltage/internal cel resistance", noKey, Window,
        TO(toolBarEnergy(bool)), figureSwitch | Disabled},
    {ActionId::StopProcess, TEXT("Stop process"), "stop_sign.png", TEXT("Stop process."), noKey, Window,
        TO(toolBarStop()), Plain},
    {ActionId::HoldView, TEXT("Hold view"), nullptr, "Graph windows keep zoom and cursor", noKey, Nobody,
        nullptr, Checkable},
    {ActionId::OpenRecordings, TEXT("Open recordings..."), "open.png",
        TEXT("Open what was recorded from the devices, saved or not."), noKey, Nobody, nullptr, Plain,
        "openRecordingsAction"},
    {ActionId::ReopenClosed, TEXT("Reopen closed recording"), nullptr,
        TEXT("Open again the recording whose window was closed last."), noKey, Nobody, nullptr, Plain,
        "reopenClosedAction"},
    {ActionId::ExportCsv, TEXT("Export as CSV..."), "export.png",
        TEXT("Write the records of the current graph as a table for other programs."), noKey, Nobody, nullptr,
        Plain, "exportCsvAction"},
    {ActionId::SavePicture, TEXT("Save picture..."), "picture.png",
        TEXT("Write the current graph as its window shows it to a picture file."), noKey, Nobody, nullptr,
        Plain, "savePictureAction"},
    {ActionId::RemoteControl, TEXT("Remote control..."), "remote.png",
        TEXT("Operate the front panel of the charger."), noKey, Nobody, nullptr, Plain,
        "remoteControlAction"},
};

#undef TO
#undef TEXT

static_assert(std::size(rows) == size_t(ActionId::Count), "one row an action");

QString translated(const char *text)
{
    return QCoreApplication::translate("MainWindow", text);
}

void describe(QAction *action, const ActionRow &row)
{
    action->setObjectName(QLatin1String(row.name));
    action->setText(translated(row.text));
    if (row.icon)
        action->setIcon(QIcon(QStringLiteral(":/Icons/") + QLatin1String(row.icon)));
    if (row.flags & Checkable)
        action->setToolTip(QString::fromLatin1(row.tip));
    else
        action->setStatusTip(translated(row.tip));
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
    (*this)[ActionId::HoldView]->setShortcut(Qt::Key_H);
    (*this)[ActionId::ReopenClosed]->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_T);
    showPaused(QString());
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
    const QString tip = reason.isEmpty() ? translated(row->tip) : reason;
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
