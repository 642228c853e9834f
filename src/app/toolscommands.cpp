#include "app/toolscommands.h"

#include "app/actionset.h"
#include "app/userguide.h"
#include "documents/documents.h"
#include "documents/graphexports.h"
#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "settings/messagetime.h"

#include <QAction>

ToolsCommands::ToolsCommands(QWidget *shell, const ActionSet *actions, GraphWindows *graphs,
    Documents *documents, FileWriter *writer, WindowFiles *windowFiles)
    : QObject(shell)
    , m_shell(shell)
    , m_actions(actions)
    , m_graphs(graphs)
    , m_documents(documents)
    , m_windowFiles(windowFiles)
    , m_exports(new GraphExports(shell, writer, windowFiles))
{
    const ActionSet &action = *m_actions;
    connect(action[ActionId::OpenRecordings], SIGNAL(triggered()), this, SLOT(openRecordings()));
    connect(action[ActionId::ReopenClosed], SIGNAL(triggered()), this, SLOT(reopenClosed()));
    connect(action[ActionId::ExportCsv], SIGNAL(triggered()), this, SLOT(exportCsv()));
    connect(action[ActionId::SavePicture], SIGNAL(triggered()), this, SLOT(savePicture()));
    connect(action[ActionId::UserGuide], SIGNAL(triggered()), this, SLOT(userGuide()));
    connect(m_exports, SIGNAL(message(QString,int)), this, SIGNAL(message(QString,int)));
    connect(m_graphs, SIGNAL(currentChanged()), this, SLOT(refresh()));
    connect(m_windowFiles, SIGNAL(closedChanged()), this, SLOT(refresh()));
    refresh();
}

void ToolsCommands::refresh()
{
    const QString noGraph = m_graphs->current() ? QString() : tr("There is no graph window.");
    m_actions->offer(ActionId::OpenRecordings, QString());
    m_actions->offer(ActionId::ReopenClosed,
        m_windowFiles->hasClosed() ? QString()
                                   : tr("No window of an unsaved recording has been closed yet."));
    m_actions->offer(ActionId::ExportCsv, noGraph);
    m_actions->offer(ActionId::SavePicture, noGraph);
}

void ToolsCommands::openRecordings()
{
    m_documents->openRecordings();
}

void ToolsCommands::reopenClosed()
{
    const QString fileName = m_windowFiles->takeClosed();
    if (fileName.isEmpty())
        emit message(tr("The closed recording is no longer there."), usualMessageTime);
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

void ToolsCommands::userGuide()
{
    UserGuide::open(m_shell);
}
