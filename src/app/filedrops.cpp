#include "app/filedrops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

QStringList filesOf(const QMimeData *data)
{
    QStringList files;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

FileDrops::FileDrops(QWidget *window)
    : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event); // a QDragEnterEvent is one too
    const QStringList files = filesOf(drop->mimeData());
    if (files.isEmpty())
        return true;
    drop->acceptProposedAction();
    if (event->type() == QEvent::Drop)
        emit dropped(files);
    return true;
}
