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

bool FileDrops::eventFilter(QObject *, QEvent *event)
{
    const bool drops = event->type() == QEvent::Drop;
    if (drops || event->type() == QEvent::DragEnter) {
        auto *drop = static_cast<QDropEvent *>(event); // a QDragEnterEvent is one too
        const QStringList files = filesOf(drop->mimeData());
        if (!files.isEmpty())
            drop->acceptProposedAction();
        if (!files.isEmpty() && drops)
            emit dropped(files);
    }
    return false; // the window itself does nothing with them
}
