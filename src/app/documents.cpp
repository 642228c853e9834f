#include "app/documents.h"

#include "app/displaywindows.h"
#include "app/filequeue.h"
#include "app/graphwindows.h"
#include "data/recordlist.h"
#include "files/datafilewriter.h"
#include "files/varelstyleditemdelegate.h"
#include "graph/mdigraphchild.h"
#include "settings/varnelsettings.h"

#include <QDir>
#include <QFileDialog>
#include <QListView>
#include <QMessageBox>
#include <QTreeView>

namespace {

constexpr int labelsKept = 10000; // a large folder scrolls without reading a file twice
constexpr int failuresShown = 12; // the rest are under the box's details

QString lastFolderKey()
{
    return QStringLiteral("global/lastDir");
}

QString lastFolder()
{
    return VarnelSettings().value(lastFolderKey(), QString()).toString();
}

void keepLastFolder(const QString &path)
{
    VarnelSettings settings;
    settings.setValue(lastFolderKey(), path);
    settings.sync();
}

void showBox(
    QWidget *parent, const char *name, const QString &title, const QString &text, const QString &details)
{
    auto *box = new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->setObjectName(QLatin1String(name));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    if (!details.isEmpty())
        box->setDetailedText(details);
    box->show();
}

} // namespace

Documents::Documents(
    QWidget *shellWindow, QStatusBar *bar, GraphWindows *graphWindows, DisplayWindows *displayWindows)
    : QObject(shellWindow)
    , shell(shellWindow)
    , graphs(graphWindows)
    , displays(displayWindows)
    , queue(new FileQueue(bar, this))
    , labels(labelsKept)
{
    connect(this, SIGNAL(message(QString,int)), shell, SLOT(showMessageStatusBar(QString,int)));
    connect(queue, SIGNAL(message(QString,int)), shell, SLOT(showMessageStatusBar(QString,int)));
    connect(queue, SIGNAL(loaded(QString,RecordList*)), this, SLOT(onLoaded(QString,RecordList*)));
    connect(queue, SIGNAL(finished(QStringList,int)), this, SLOT(onFinished(QStringList,int)));
}

void Documents::openDialog()
{
    labels.clear();
    displays->hideAll();
    displaysHidden = true;
    const QStringList files = askForFiles();
    if (files.isEmpty()) {
        onFinished({}, 0);
        return;
    }
    open(files);
    keepLastFolder(files.first());
}

void Documents::open(const QStringList &files)
{
    queue->add(files);
}

bool Documents::isOpening() const
{
    return queue->isBusy();
}

void Documents::cancelOpening()
{
    queue->cancel();
}

QStringList Documents::askForFiles()
{
    QFileDialog dialog(
        shell, tr("Chose varnel data file names"), lastFolder(), tr("Varnel files (*.acp *.abp)"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // a native one would show no labels
    auto *delegate = new VarelStyledItemDelegate(&labels, &dialog);
    for (QAbstractItemView *view :
        {static_cast<QAbstractItemView *>(dialog.findChild<QListView *>("listView")),
            static_cast<QAbstractItemView *>(dialog.findChild<QTreeView *>("treeView"))}) {
        if (view)
            view->setItemDelegate(delegate);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

void Documents::onLoaded(const QString &fileName, RecordList *records)
{
    auto *child = new MdiGraphChild(graphs, shell);
    child->loadRecords(std::move(*records), fileName);
    graphs->place(child);
}

void Documents::onFinished(const QStringList &failures, int total)
{
    QMetaObject::invokeMethod(shell, "renumerateWindows", Qt::DirectConnection);
    if (displaysHidden)
        displays->showAsSwitched();
    displaysHidden = false;
    if (!failures.isEmpty() && total > 1)
        listFailures(failures, total);
}

void Documents::listFailures(const QStringList &failures, int total)
{
    QString text = tr("%1 of %2 files could not be opened:").arg(failures.size()).arg(total);
    text += QStringLiteral("\n\n") + QStringList(failures.mid(0, failuresShown)).join(QLatin1Char('\n'));
    const int more = failures.size() - failuresShown;
    if (more > 0)
        text += QLatin1Char('\n') + tr("... and %n more", nullptr, more);
    showBox(shell, "openFailures", tr("Open file"), text,
        more > 0 ? failures.join(QLatin1Char('\n')) : QString());
}

void Documents::saveDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child); // its window may be closed while the dialog is open
    const QString name = QFileDialog::getSaveFileName(shell, tr("Choose file name"), lastFolder(),
        QStringLiteral("*.acp"), nullptr, QFileDialog::DontUseNativeDialog);
    if (name.isEmpty() || !guard)
        return;
    save(guard, name);
    keepLastFolder(name);
}

void Documents::save(MdiGraphChild *child, const QString &fileName)
{
    const SaveResult result = saveRecords(fileName, child->store().records());
    if (!result.saved) {
        emit message(tr("Can not save file %1").arg(fileName), 0);
        showBox(shell, "saveFailed", tr("Save as"),
            tr("Can not save file %1").arg(QDir::toNativeSeparators(fileName)) + QLatin1Char('\n')
                + result.reason,
            QString());
        return;
    }
    child->markSaved(fileName);
    emit message(tr("Data saved on disk."), 1000);
    if (result.unreadable > 0)
        tellUnreadable(result.unreadable, fileName);
}

void Documents::tellUnreadable(int count, const QString &fileName)
{
    showBox(shell, "unreadableRecords", tr("Save as"),
        tr("%n record(s) of a mode that the file format has no letter for can't be read back from %1.",
            nullptr, count)
            .arg(QDir::toNativeSeparators(fileName)),
        QString());
}
