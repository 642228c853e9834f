#include "documents/choosing/folderview.h"

#include "documents/choosing/boundedselection.h"
#include "documents/choosing/datafilesmodel.h"
#include "documents/choosing/namecompleter.h"
#include "documents/choosing/quietfilemodel.h"

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QScreen>
#include <QTreeView>
#include <QUrl>

#include <iterator>

namespace {

constexpr int batchSize = 20000; // rows, that a list view lays out in some ms
constexpr int urlRole = Qt::UserRole + 1; // of the places in a file dialog

/// `path` or what it lies in; empty where there is none.
QString folderOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return path;
    return info.isFile() ? info.path() : QString();
}

} // namespace

FolderView::FolderView(QFileDialog *dialog, DataFilesModel *model)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_model(model)
    , m_jobs(this)
{
    dialog->setOption(QFileDialog::DontUseNativeDialog); // a native one has no views
    auto *tree = static_cast<QTreeView *>(view("treeView"));
    tree->setUniformRowHeights(true);
    tree->header()->setResizeContentsPrecision(0); // looks at the rows in sight only
    auto *list = static_cast<QListView *>(view("listView"));
    list->setUniformItemSizes(true);
    list->setLayoutMode(QListView::Batched);
    list->setBatchSize(batchSize);

    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    auto *usualCompleter = edit->completer();
    m_completer = new NameCompleter(edit, model);
    connect(model, SIGNAL(listed(bool)), this, SLOT(onListed(bool)));
    connect(model, SIGNAL(detailed()), this, SLOT(onDetailed()));
    dialog->setProxyModel(model);
    if (usualCompleter)
        usualCompleter->setModel(nullptr);
    boundSelection();

    auto *hidden = dialog->findChild<QAction *>(QStringLiteral("qt_show_hidden_action"));
    connect(hidden, SIGNAL(toggled(bool)), model, SLOT(showHidden(bool)));
    auto *places = dialog->findChild<QComboBox *>(QStringLiteral("lookInCombo"));
    disconnect(places, SIGNAL(activated(QString)), dialog, nullptr);
    connect(places, SIGNAL(activated(int)), this, SLOT(goToPlace(int)));
    auto *bookmarks = dialog->findChild<QAbstractItemView *>(QStringLiteral("sidebar"));
    disconnect(bookmarks, SIGNAL(goToUrl(QUrl)), dialog, nullptr);
    connect(bookmarks, SIGNAL(goToUrl(QUrl)), this, SLOT(goToUrl(QUrl)));
    disconnect(edit, SIGNAL(textChanged(QString)), dialog, SLOT(_q_autoCompleteFileName(QString)));
    connect(edit, SIGNAL(textChanged(QString)), this, SLOT(selectTyped(QString)));
    fitColumns();
    keepFileModelQuiet(dialog);
}

// From the font alone: sizes to contents would read every file. What the user has made wider stays so.
void FolderView::fitColumns() const
{
    const QString widest[]
        = {QStringLiteral("2026-11-21_06-40-50_COM12.acp [Cha 16xLiPo]"), QStringLiteral("1,023.99 MiB"),
            typeText(QStringLiteral("a.acp"), false), QStringLiteral("22 Nov 2026 01:09:12 PM")};
    constexpr int margin = 30; // of a cell, with the icon of the first
    constexpr int places = 160; // what stands beside the columns
    constexpr int height = 480;
    const auto *tree = static_cast<QTreeView *>(view("treeView"));
    int sum = places;
    for (int column = 0; column < int(std::size(widest)); ++column) {
        const int text = tree->fontMetrics().horizontalAdvance(widest[column]) + margin;
        const int needed = qMax(text, tree->header()->sectionSizeHint(column));
        tree->header()->resizeSection(column, qMax(needed, tree->header()->sectionSize(column)));
        sum += tree->header()->sectionSize(column);
    }
    const int screen = m_dialog->screen()->availableSize().width();
    m_dialog->resize(qMax(m_dialog->width(), qMin(sum, screen)), height);
}

// The dialog asks its list for the selection each time, but hears of changes by the first one only.
void FolderView::boundSelection()
{
    QItemSelectionModel *usual = view("listView")->selectionModel();
    auto *bounded = new BoundedSelection(m_model, view("listView"));
    for (const char *name : {"listView", "treeView"})
        view(name)->setSelectionModel(bounded);
    usual->deleteLater();
    connect(bounded,
        SIGNAL(selectionChanged(QItemSelection,QItemSelection)), m_dialog, SLOT(_q_selectionChanged()));
    connect(bounded,
        SIGNAL(currentChanged(QModelIndex,QModelIndex)), m_dialog, SLOT(_q_currentChanged(QModelIndex)));
}

void FolderView::goTo(const QString &path)
{
    m_destination = path;
    if (path.isEmpty()) // the drives
        return m_dialog->setDirectory(path);
    m_jobs.run([path] { return folderOf(path); },
        [this, path](const QString &folder) {
            if (path != m_destination)
                return;
            if (!folder.isEmpty())
                return m_dialog->setDirectory(folder);
            QMessageBox::warning(m_dialog, m_dialog->windowTitle(),
                QFileDialog::tr(
                    "%1\nDirectory not found.\nPlease verify the correct directory name was given.")
                    .arg(path));
        });
}

// Where only some of the names are in the folder, what is typed says more than what would be selected.
void FolderView::selectTyped(const QString &text)
{
    const QStringList names
        = text.contains(QLatin1Char('"')) ? text.split(QLatin1Char('"')) : QStringList(text);
    QItemSelection selection;
    bool isWhole = true;
    for (const QString &name : names) {
        const int row = m_model->listing().rowOf(name);
        if (row >= 0)
            selection.append(QItemSelectionRange(m_model->index(row, 0)));
        else if (!name.trimmed().isEmpty())
            isWhole = false;
    }
    const bool isTyped = m_dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->hasFocus();
    QItemSelectionModel *selected = view("listView")->selectionModel();
    if (isTyped && !isWhole)
        selected->clearSelection();
    else
        selected->select(selection,
            (isTyped ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select)
                | QItemSelectionModel::Rows);
}

void FolderView::goToUrl(const QUrl &url)
{
    goTo(url.toLocalFile());
}

void FolderView::goToPlace(int index)
{
    goTo(static_cast<QComboBox *>(sender())->itemData(index, urlRole).toUrl().toLocalFile());
}

void FolderView::onListed(bool complete)
{
    m_dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
        ->setPlaceholderText(complete ? QString() : tr("The folder is being read..."));
    m_completer->refresh();
    if (m_model->hasChildren())
        fitList(static_cast<QListView *>(view("listView")));
}

void FolderView::onDetailed()
{
    auto *tree = static_cast<QTreeView *>(view("treeView"));
    QMetaObject::invokeMethod(tree->header(), "resizeSections"); // of those that follow their contents
    tree->viewport()->update();
    view("listView")->viewport()->update();
}

QAbstractItemView *FolderView::view(const char *name) const
{
    return m_dialog->findChild<QAbstractItemView *>(QLatin1String(name));
}

// One size for all: to measure each would take as long as to read them.
void FolderView::fitList(QListView *list) const
{
    const QModelIndex first = m_model->index(0, 0);
    const QFontMetrics metrics = list->fontMetrics();
    const QSize size = list->sizeHintForIndex(first);
    const int beside = size.width() - metrics.horizontalAdvance(first.data().toString());
    const QString widest = m_model->listing().longest + QLatin1String(" [Cha 16xLiPo]");
    const QSize grid(beside + metrics.horizontalAdvance(widest), size.height());
    if (list->gridSize() != grid)
        list->setGridSize(grid);
}
