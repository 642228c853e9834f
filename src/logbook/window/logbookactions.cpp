#include "logbook/window/logbookactions.h"

#include "widgets/mnemonics.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <iterator>

namespace {

struct ActionRow {
    LogbookCommand id;
    const char *text;
    const char *tip;
    int key;
    bool isFirstOfGroup = false;
};

constexpr int ctrl = int(Qt::CTRL);
constexpr int shift = int(Qt::SHIFT);

/// A class, so that its texts are found under its translations' name.
struct ActionTable {
    Q_DECLARE_TR_FUNCTIONS(LogbookActions)
public:
    inline static const ActionRow rows[] = {
        {LogbookCommand::Open, QT_TR_NOOP("Open"),
            QT_TR_NOOP("Opens the chosen recordings, each in a graph window."), ctrl | int(Qt::Key_O)},
        {LogbookCommand::Overlay, QT_TR_NOOP("Overlay"),
            QT_TR_NOOP("Shows the curves of the chosen recordings over each other."),
            ctrl | shift | int(Qt::Key_L)},
        {LogbookCommand::ShowInFolder, QT_TR_NOOP("Show in folder"),
            QT_TR_NOOP("Opens the folder that holds the file."), ctrl | shift | int(Qt::Key_O)},
        {LogbookCommand::Assign, QT_TR_NOOP("Assign to pack..."),
            QT_TR_NOOP("Tells of which pack the chosen recordings are."), ctrl | int(Qt::Key_B), true},
        {LogbookCommand::AssignOffered, QT_TR_NOOP("Assign to offered pack"),
            QT_TR_NOOP("Takes for each the pack that was used last at the same port with the same cells."),
            ctrl | int(Qt::Key_Return)},
        {LogbookCommand::Unassign, QT_TR_NOOP("Assign to none"),
            QT_TR_NOOP("The chosen recordings have no pack then."), ctrl | shift | int(Qt::Key_B)},
        {LogbookCommand::Note, QT_TR_NOOP("Note..."), QT_TR_NOOP("Your own words on the recording"),
            int(Qt::Key_F2)},
        {LogbookCommand::DeleteFiles, QT_TR_NOOP("Delete file..."),
            QT_TR_NOOP("Moves the chosen files to the waste bin, after a question."), int(Qt::Key_Delete),
            true},
        {LogbookCommand::RemoveRows, QT_TR_NOOP("Remove from logbook"),
            QT_TR_NOOP("Forgets chosen recordings whose files have gone."), ctrl | int(Qt::Key_Delete)},
        {LogbookCommand::ExportTable, QT_TR_NOOP("Export as CSV..."),
            QT_TR_NOOP("Writes the rows that are shown as a table for other programs."),
            ctrl | int(Qt::Key_E), true},
        {LogbookCommand::PrintTable, QT_TR_NOOP("Print table..."),
            QT_TR_NOOP("Prints the rows and columns that are shown."), ctrl | int(Qt::Key_P)},
        {LogbookCommand::Close, QT_TR_NOOP("Close"), QT_TR_NOOP("Closes the window of the logbook."),
            ctrl | int(Qt::Key_W), true},
        {LogbookCommand::Undo, QT_TR_NOOP("Undo"), QT_TR_NOOP("Takes back the last change."),
            ctrl | int(Qt::Key_Z)},
        {LogbookCommand::Redo, QT_TR_NOOP("Redo"), QT_TR_NOOP("Makes the change again that was taken back."),
            ctrl | shift | int(Qt::Key_Z)},
        {LogbookCommand::Find, QT_TR_NOOP("Filter"), QT_TR_NOOP("Takes the keyboard to the filter."),
            ctrl | int(Qt::Key_F), true},
        {LogbookCommand::ShowAll, QT_TR_NOOP("Clear filter"),
            QT_TR_NOOP("Shows every recording of the pack."), ctrl | shift | int(Qt::Key_F)},
        {LogbookCommand::Folders, QT_TR_NOOP("Folders..."),
            QT_TR_NOOP("Chooses folders whose recordings are read, too."), ctrl | int(Qt::Key_D), true},
        {LogbookCommand::ReadAgain, QT_TR_NOOP("Read again"),
            QT_TR_NOOP("Looks for new and changed files in all folders now."), int(Qt::Key_F5)},
        {LogbookCommand::NewPack, QT_TR_NOOP("New pack..."), QT_TR_NOOP("Adds a pack."),
            ctrl | int(Qt::Key_N)},
        {LogbookCommand::ChangePack, QT_TR_NOOP("Rename or change pack..."),
            QT_TR_NOOP("Name, chemistry, cells, nominal capacity and note of the chosen pack"),
            shift | int(Qt::Key_F2)},
        {LogbookCommand::MergePacks, QT_TR_NOOP("Merge packs..."),
            QT_TR_NOOP("Makes one of the chosen pack and another one."), ctrl | int(Qt::Key_M)},
        {LogbookCommand::TakeApart, QT_TR_NOOP("Take apart..."),
            QT_TR_NOOP("Moves the chosen recordings of a pack to a new pack like it."),
            ctrl | int(Qt::Key_T)},
        {LogbookCommand::RemovePack, QT_TR_NOOP("Remove pack"),
            QT_TR_NOOP("Removes the chosen pack. Its recordings stay, assigned to none."),
            ctrl | int(Qt::Key_R), true},
        {LogbookCommand::SavePicture, QT_TR_NOOP("Save picture..."),
            QT_TR_NOOP("Writes the chart as the window shows it to a picture file."), ctrl | int(Qt::Key_S)},
        {LogbookCommand::PrintCourse, QT_TR_NOOP("Print chart..."), QT_TR_NOOP("Prints the chart."),
            ctrl | shift | int(Qt::Key_P)},
        {LogbookCommand::Explain, QT_TR_NOOP("Explain row"),
            QT_TR_NOOP("Shows all figures and the curve of the current row. The space bar does so, too."),
            shift | int(Qt::Key_F1)},
        {LogbookCommand::SortByColumn, QT_TR_NOOP("Sort by column"),
            QT_TR_NOOP("Sorts by the current column, the second time the other way round."),
            ctrl | int(Qt::Key_Up), true},
        {LogbookCommand::MoveLeft, QT_TR_NOOP("Move column left"),
            QT_TR_NOOP("Moves the current column to the left."), ctrl | shift | int(Qt::Key_Left)},
        {LogbookCommand::MoveRight, QT_TR_NOOP("Move column right"),
            QT_TR_NOOP("Moves the current column to the right."), ctrl | shift | int(Qt::Key_Right)},
        {LogbookCommand::HideColumn, QT_TR_NOOP("Hide column"), QT_TR_NOOP("Hides the current column."),
            ctrl | int(Qt::Key_H)},
        {LogbookCommand::ShowAllColumns, QT_TR_NOOP("Show all columns"),
            QT_TR_NOOP("Shows the hidden columns again."), ctrl | shift | int(Qt::Key_H)},
    };
};

constexpr auto &actionRows = ActionTable::rows;

static_assert(std::size(actionRows) == size_t(LogbookCommand::Count), "one row a command");

} // namespace

LogbookActions::LogbookActions(QObject *parent)
    : QObject(parent)
{
    for (const ActionRow &row : actionRows) {
        auto *action = new QAction(ActionTable::tr(row.text), this);
        action->setShortcut(row.key);
        m_actions[size_t(row.id)] = action;
        offer(row.id, QString());
    }
}

void LogbookActions::offer(LogbookCommand id, const QString &reason) const
{
    QAction *action = (*this)[id];
    const QString tip = reason.isEmpty() ? ActionTable::tr(actionRows[size_t(id)].tip) : reason;
    action->setEnabled(reason.isEmpty());
    action->setStatusTip(tip);
    action->setToolTip(tip);
}

QMenu *LogbookActions::addMenu(QMenuBar *bar, const QString &title, LogbookCommand first, LogbookCommand last)
{
    QMenu *menu = bar->addMenu(title);
    menu->setToolTipsVisible(true);
    for (auto i = size_t(first); i <= size_t(last); ++i) {
        if (actionRows[i].isFirstOfGroup)
            menu->addSeparator();
        menu->addAction(m_actions[i]);
    }
    new MenuMnemonics(menu);
    return menu;
}

void LogbookActions::fill(QMenuBar *bar)
{
    m_recordings = addMenu(bar, tr("&Recordings"), LogbookCommand::Open, LogbookCommand::Close);
    addMenu(bar, tr("&Edit"), LogbookCommand::Undo, LogbookCommand::ReadAgain);
    m_packs = addMenu(bar, tr("&Packs"), LogbookCommand::NewPack, LogbookCommand::RemovePack);
    m_course = addMenu(bar, tr("&Chart"), LogbookCommand::SavePicture, LogbookCommand::PrintCourse);
    m_columns = addMenu(bar, tr("&View"), LogbookCommand::Explain, LogbookCommand::ShowAllColumns);
}
