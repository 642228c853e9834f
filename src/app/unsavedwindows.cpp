#include "app/unsavedwindows.h"

#include "app/documents.h"
#include "app/graphwindows.h"
#include "app/recordings.h"
#include "graph/mdigraphchild.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

namespace {

constexpr int messageTime = 10000; // ms; a file's name takes longer to read than most
constexpr int leastRecords = 2; // a journal of fewer goes with its recording

QString nameOf(const MdiGraphChild *child)
{
    const QString name = QString::number(child->windowNumber());
    return child->fileName().isEmpty() ? name
                                       : name + QStringLiteral(" (") + child->fileName() + QLatin1Char(')');
}

} // namespace

UnsavedWindows::UnsavedWindows(
    QWidget *shell, GraphWindows *graphs, Documents *documents, Recordings *recordings)
    : QObject(shell)
    , m_shell(shell)
    , m_graphs(graphs)
    , m_documents(documents)
    , m_recordings(recordings)
{
    connect(this, SIGNAL(message(QString,int)), m_shell, SLOT(showMessageStatusBar(QString,int)));
}

bool UnsavedWindows::mayClose(MdiGraphChild *child)
{
    if (isInDanger(child) && !ask(child))
        return false;
    const bool reopenable
        = child->hasUnsavedData() && m_recordings->keepsAll(child) && child->store().size() >= leastRecords;
    if (reopenable) {
        const QString name = QFileInfo(m_recordings->fileOf(child)).fileName();
        emit message(
            tr("The recording is kept as %1: Tools > Reopen closed recording.").arg(name), messageTime);
    }
    m_recordings->noteClosed(child, reopenable);
    return true;
}

bool UnsavedWindows::mayCloseAll()
{
    const QList<MdiGraphChild *> children = m_graphs->all();
    for (const QPointer<MdiGraphChild> child : children) {
        if (child && isInDanger(child) && !ask(child))
            return false;
    }
    return true;
}

bool UnsavedWindows::isInDanger(const MdiGraphChild *child) const
{
    return child->hasUnsavedData() && !m_recordings->keepsAll(child);
}

bool UnsavedWindows::ask(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child);
    QMessageBox box(QMessageBox::Question, tr("Recording"),
        tr("The recording in window %1 is not saved.").arg(nameOf(child)),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_shell);
    box.setObjectName(QStringLiteral("unsavedRecording"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(m_recordings->fileOf(child).isEmpty()
            ? tr("Nothing else keeps it. Save it before its window closes?")
            : tr("The journal could not keep all of it. Save it before its window closes?"));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    if (answer == QMessageBox::Save)
        return guard && m_documents->saveDialog(guard);
    return answer == QMessageBox::Discard;
}
