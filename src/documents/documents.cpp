#include "documents/documents.h"

#include "documents/choosing/datafilesmodel.h"
#include "desk/displaywindows.h"
#include "documents/choosing/dialogplaces.h"
#include "documents/filequeue.h"
#include "documents/filewriter.h"
#include "documents/choosing/folderview.h"
#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "documents/choosing/recordingsmodel.h"
#include "documents/choosing/savedialog.h"
#include "settings/messagetime.h"
#include "widgets/warningbox.h"
#include "files/datafilepieces.h"
#include "journal/journalfolder.h"
#include "files/varelstyleditemdelegate.h"
#include "graph/mdigraphchild.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QListView>
#include <QTimer>
#include <QTreeView>

namespace {

constexpr int savedTime = 1000; // ms
constexpr int labelBytes = 4 << 20; // ten thousand files and more scroll without being read twice
constexpr int sizeColumn = 1; // of a file dialog's details
constexpr int dateColumn = 3;
constexpr int columnMargin = 16; // px, of a text in its column
constexpr int failuresShown = 12; // the rest are under the box's details

/// The file opened or saved last; at first a folder, as without any the dialog
/// shows the one that another was left in.
QString lastFolder()
{
    const QString last = VarnelSettings().value(SettingsKey::lastDir, QString()).toString();
    return last.isEmpty() ? QDir::homePath() : last;
}

QTreeView *detailsOf(const QFileDialog &dialog)
{
    return dialog.findChild<QTreeView *>(QStringLiteral("treeView"));
}

/// The newest first, with room for what the columns hold, whatever the font.
void arrangeRecordings(QFileDialog &dialog)
{
    dialog.setViewMode(QFileDialog::Detail);
    QTreeView *const tree = detailsOf(dialog);
    QHeaderView *const header = tree->header();
    tree->sortByColumn(0, Qt::DescendingOrder); // the names begin with date and time
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(dateColumn, QHeaderView::ResizeToContents);
    const auto widthOf = [tree](const char *text) {
        return tree->fontMetrics().horizontalAdvance(QLatin1String(text)) + columnMargin;
    };
    header->resizeSection(sizeColumn, widthOf("1,023.99 MiB"));
    header->resizeSection(RecordingsModel::lengthColumn,
        std::max(widthOf("Length 000"), header->sectionSizeHint(RecordingsModel::lengthColumn)));
    // From the font alone: sizes to contents would read every file for its label.
    dialog.resize(widthOf("2026-11-21_06-40-50_COM12_2.acp [Cha 16xLiPo]   1,023.99 MiB  Length 000"
                          "  22 September 2026 01:09:12  Computer Computer"),
        dialog.height());
}

void keepLastFolder(const QString &path)
{
    VarnelSettings().setValue(SettingsKey::lastDir, path);
}

} // namespace

Documents::Documents(QWidget *shellWindow, ProgressStrip *strip, FileWriter *fileWriter,
    GraphWindows *graphWindows, DisplayWindows *displayWindows, WindowFiles *files)
    : QObject(shellWindow)
    , m_shell(shellWindow)
    , m_writer(fileWriter)
    , m_graphs(graphWindows)
    , m_displays(displayWindows)
    , m_windowFiles(files)
    , m_queue(new FileQueue(strip, this))
    , m_labels(labelBytes)
{
    connect(m_queue, SIGNAL(message(QString,int)), this, SIGNAL(message(QString,int)));
    connect(m_queue,
        SIGNAL(loaded(QString,SeriesStore*,FileStamp)), this, SLOT(onLoaded(QString,SeriesStore*,FileStamp)));
    connect(m_queue, SIGNAL(finished(QStringList,int)), this, SLOT(onFinished(QStringList,int)));
}

void Documents::openDialog()
{
    const QStringList files = askFiles(m_shell);
    if (files.isEmpty())
        onFinished();
    else
        open(files);
}

QStringList Documents::chooseFiles(QWidget *window)
{
    const QStringList files = askFiles(window);
    onFinished();
    return files;
}

QStringList Documents::askFiles(QWidget *window)
{
    const DialogPlaces places(lastFolder());
    QFileDialog dialog(
        window, tr("Chose varnel data file names"), places.first(), tr("Varnel files (*.acp *.abp)"));
    auto *view
        = new FolderView(&dialog, new DataFilesModel({QStringLiteral(".acp"), QStringLiteral(".abp")}));
    if (places.isSilent())
        view->goTo(lastFolder());
    const QStringList files = chooseFrom(dialog);
    if (!files.isEmpty())
        keepLastFolder(files.first());
    return files;
}

void Documents::openRecordings()
{
    const QString folder = m_windowFiles->folder().path();
    const DialogPlaces places(folder);
    if (!places.isSilent())
        QDir().mkpath(folder); // nothing may have been recorded yet
    QFileDialog dialog(m_shell, tr("Open recordings"), places.first(), tr("Recordings (*.acp)"));
    auto *view = new FolderView(&dialog, new RecordingsModel(&dialog));
    const QByteArray usualHeader = detailsOf(dialog)->header()->saveState();
    const QFileDialog::ViewMode usualMode = dialog.viewMode();
    if (!dialog.restoreState(VarnelSettings().value(SettingsKey::recordingsDialog).toByteArray()))
        arrangeRecordings(dialog);
    dialog.setDirectory(places.first());
    if (places.isSilent())
        view->goTo(folder);
    openFrom(dialog);
    VarnelSettings().setValue(SettingsKey::recordingsDialog, dialog.saveState());
    // What it leaves is where the next dialog of any kind begins.
    detailsOf(dialog)->header()->restoreState(usualHeader);
    dialog.setViewMode(usualMode);
}

void Documents::open(const QStringList &files)
{
    m_queue->add(files);
}

bool Documents::isOpening() const
{
    return m_queue->isBusy();
}

void Documents::cancelOpening()
{
    m_queue->cancel();
}

QStringList Documents::chooseFrom(QFileDialog &dialog)
{
    m_labels.clear();
    m_displays->hideAll();
    m_displaysHidden = true;
    dialog.setFileMode(QFileDialog::ExistingFiles);
    auto *delegate = new VarelStyledItemDelegate(&m_labels, &dialog);
    for (QAbstractItemView *view :
        {static_cast<QAbstractItemView *>(dialog.findChild<QListView *>("listView")),
            static_cast<QAbstractItemView *>(dialog.findChild<QTreeView *>("treeView"))}) {
        view->setItemDelegate(delegate);
    }
    const QStringList files = dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
    dialog.setDirectory(
        QDir::homePath()); // where the next one looks first, and this disk may be gone by then
    return files;
}

void Documents::openFrom(QFileDialog &dialog)
{
    const QStringList files = chooseFrom(dialog);
    if (files.isEmpty())
        onFinished();
    else
        open(files);
}

void Documents::onLoaded(const QString &fileName, SeriesStore *store, const FileStamp &stamp)
{
    auto *child = new MdiGraphChild(m_graphs, m_shell);
    child->load(std::move(*store), fileName);
    m_windowFiles->attachFile(child, fileName);
    m_graphs->place(child);
    emit fileOpened(fileName, child, stamp);
}

void Documents::onFinished(const QStringList &failures, int total)
{
    emit opened();
    if (m_displaysHidden)
        m_displays->showAsSwitched();
    m_displaysHidden = false;
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
    showWarningBox(m_shell, "openFailures", tr("Open file"), text,
        more > 0 ? failures.join(QLatin1Char('\n')) : QString());
}

void Documents::saveDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child); // its window may be closed while the dialog is open
    const QString name = askSaveName(child);
    if (!name.isEmpty() && guard)
        save(guard, name, [](bool) {});
}

// Never preset with another recording's name, which would be one Enter from being replaced.
QString Documents::askSaveName(const MdiGraphChild *child)
{
    SaveDialog dialog(m_shell, tr("Choose file name"), {QStringLiteral("*.acp")});
    dialog.refuse({QStringLiteral(".abp")},
        tr("Files that end in .abp are only read. Choose a name that ends in .acp."));
    const QFileInfo last(lastFolder());
    dialog.setDirectory(last.isDir() ? last.filePath() : last.path());
    dialog.suggest(m_windowFiles->nameFor(child));
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString name = dialog.selectedFiles().value(0);
    keepLastFolder(name);
    return name;
}

void Documents::save(MdiGraphChild *child, const QString &fileName, const std::function<void(bool)> &done)
{
    if (m_windowFiles->isBeingRecorded(fileName)) {
        tellFailure(fileName, tr("A recording is being written to this file."));
        done(false);
        return;
    }
    auto lines = std::make_unique<DataFilePieces>(child->store().records(), child->store().markedFrom());
    const DataFilePieces *const written = lines.get();
    m_writer->add(fileName, std::move(lines), [=](const WriteOutcome &outcome) {
        finishSave(child, fileName, *written, outcome);
        done(outcome.written);
    });
}

void Documents::finishSave(
    MdiGraphChild *child, const QString &fileName, const DataFilePieces &lines, const WriteOutcome &outcome)
{
    if (outcome.cancelled) {
        emit message(tr("Saving was cancelled."), usualMessageTime);
    } else if (!outcome.written) {
        tellFailure(fileName, outcome.reason);
    } else {
        child->markSaved(fileName, lines.recordCount());
        emit fileSaved(fileName, m_windowFiles->fileOf(child));
        emit message(tr("Data saved on disk."), savedTime);
        m_savedFile = QDir::toNativeSeparators(fileName);
        QTimer::singleShot(savedTime, this, SLOT(nameSaved()));
        if (lines.unreadable() > 0)
            tellUnreadable(lines.unreadable(), child, fileName);
    }
}

// A second is enough to see that it was saved, not to read where.
void Documents::nameSaved()
{
    emit message(tr("%1 written.").arg(m_savedFile), usualMessageTime);
}

void Documents::tellFailure(const QString &fileName, const QString &reason)
{
    emit message(tr("Can not save file %1").arg(fileName), 0);
    showWarningBox(m_shell, "saveFailed", tr("Save as"),
        tr("Can not save file %1").arg(QDir::toNativeSeparators(fileName)) + QLatin1Char('\n') + reason);
}

void Documents::tellUnreadable(int count, const MdiGraphChild *child, const QString &fileName)
{
    QString text
        = tr("%n record(s) of a mode or chemistry that the file format has no sign for can't be read back "
             "from %1.",
            nullptr, count)
              .arg(QDir::toNativeSeparators(fileName));
    const QString kept = m_windowFiles->fileOf(child);
    if (QFileInfo(kept) != QFileInfo(fileName) && QFileInfo::exists(kept))
        text += QLatin1Char('\n') + tr("They are kept in %1.").arg(QDir::toNativeSeparators(kept));
    showWarningBox(m_shell, "unreadableRecords", tr("Save as"), text);
}
