#include "app/toolscommands.h"

#include "documents/documents.h"
#include "documents/graphexports.h"
#include "desk/graphwindows.h"
#include "desk/windowfiles.h"

#include <QAction>
#include <QIcon>
#include <QMenu>

namespace {

constexpr int messageTime = 5000; // ms

void offer(QAction *action, bool possible, const QString &tip, const QString &reason)
{
    action->setEnabled(possible);
    action->setStatusTip(possible ? tip : reason);
    action->setToolTip(action->statusTip());
}

} // namespace

ToolsCommands::ToolsCommands(
    QWidget *shell, GraphWindows *graphs, Documents *documents, FileWriter *writer, WindowFiles *windowFiles)
    : QObject(shell)
    , m_graphs(graphs)
    , m_documents(documents)
    , m_windowFiles(windowFiles)
    , m_exports(new GraphExports(shell, writer, windowFiles))
    , m_openRecordings(
          addCommand("openRecordingsAction", tr("Open recordings..."), "open.png", SLOT(openRecordings())))
          , m_reopen(addCommand(
                "reopenClosedAction", tr("Reopen closed recording"), nullptr, SLOT(reopenClosed())))
                , m_csv(
                      addCommand("exportCsvAction", tr("Export as CSV..."), "export.png", SLOT(exportCsv())))
                      , m_picture(addCommand(
                            "savePictureAction", tr("Save picture..."), "picture.png", SLOT(savePicture())))
{
    m_reopen->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
    connect(m_graphs, SIGNAL(currentChanged()), this, SLOT(refresh()));
    connect(m_windowFiles, SIGNAL(closedChanged()), this, SLOT(refresh()));
    refresh();
}

QAction *ToolsCommands::addCommand(const char *name, const QString &text, const char *icon, const char *slot)
{
    auto *action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    if (icon)
        action->setIcon(QIcon(QStringLiteral(":/Icons/") + QLatin1String(icon)));
    connect(action, SIGNAL(triggered()), this, slot);
    return action;
}

void ToolsCommands::fill(QMenu *menu) const
{
    menu->addAction(m_openRecordings);
    menu->addAction(m_reopen);
    menu->addSeparator();
    menu->addAction(m_csv);
    menu->addAction(m_picture);
}

void ToolsCommands::refresh()
{
    const bool hasGraph = m_graphs->current() != nullptr;
    const QString noGraph = tr("There is no graph window.");
    offer(m_openRecordings, true, tr("Open what was recorded from the devices, saved or not."), QString());
    offer(m_reopen, m_windowFiles->hasClosed(), tr("Open again the recording whose window was closed last."),
        tr("No window of an unsaved recording has been closed yet."));
    offer(m_csv, hasGraph, tr("Write the records of the current graph as a table for other programs."),
        noGraph);
    offer(m_picture, hasGraph, tr("Write the current graph as its window shows it to a picture file."),
        noGraph);
}

void ToolsCommands::openRecordings()
{
    m_documents->openRecordings();
}

void ToolsCommands::reopenClosed()
{
    const QString fileName = m_windowFiles->takeClosed();
    if (fileName.isEmpty())
        m_graphs->showMessageStatusBar(tr("The closed recording is no longer there."), messageTime);
    else
        m_documents->open({fileName});
}

void ToolsCommands::exportCsv()
{
    if (MdiGraphChild *child = m_graphs->current())
        m_exports->csvDialog(child);
}

void ToolsCommands::savePicture()
{
    if (MdiGraphChild *child = m_graphs->current())
        m_exports->pictureDialog(child);
}
