#include "desk/livewindows.h"

#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "graph/mdigraphchild.h"
#include "link/recordinglog.h"

#include <QDir>

LiveWindows::LiveWindows(GraphWindows *graphs, WindowFiles *files)
    : m_graphs(graphs)
    , m_files(files)
{
}

std::unique_ptr<RecordingLog> LiveWindows::beginLog(const QString &portName)
{
    return m_files->begin(portName);
}

RecordingWindow *LiveWindows::create()
{
    MdiGraphChild *child = m_graphs->create();
    m_files->attach(child);
    const auto tell = [this, child] {
        const QString journal = m_files->fileOf(child);
        if (!journal.isEmpty())
            child->setTitleTip(tr("Journal: %1").arg(QDir::toNativeSeparators(journal)));
    };
    tell();
    QObject::connect(m_files, &WindowFiles::renamed, child, tell);
    return child;
}

QWidget *LiveWindows::windowOf(RecordingWindow *window)
{
    return static_cast<MdiGraphChild *>(window);
}

bool LiveWindows::hasCurrent() const
{
    return m_graphs->current() != nullptr;
}

bool LiveWindows::isCurrent(const QWidget *window) const
{
    return window == m_graphs->current();
}

DeviceLink *LiveWindows::currentLink() const
{
    return hasCurrent() ? m_graphs->current()->reader() : nullptr;
}

QString LiveWindows::currentPort() const
{
    return hasCurrent() ? m_graphs->current()->portName() : QString();
}

bool LiveWindows::stopCurrentProcess()
{
    return hasCurrent() && m_graphs->current()->stopProcess();
}
