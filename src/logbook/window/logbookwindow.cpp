#include "logbook/window/logbookwindow.h"

#include "logbook/logbook.h"
#include "logbook/logbookreader.h"
#include "logbook/window/table/columnsmenu.h"
#include "logbook/window/course/coursepanel.h"
#include "logbook/window/filterline.h"
#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/logbookactions.h"
#include "logbook/window/logbookstatus.h"
#include "logbook/window/packlist.h"
#include "logbook/window/table/recordingtable.h"
#include "logbook/window/table/recordingview.h"
#include "logbook/window/table/tablepages.h"
#include "printing/printrequest.h"
#include "printing/printstamp.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "widgets/displayscale.h"

#include <QAction>
#include <QCloseEvent>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int gathering = 100; // ms in which changes fall together
constexpr int packsWidth = 440; // px
constexpr int leastPacksWidth = 150;
constexpr int courseHeight = 260;
constexpr int packSpace = 4; // px between rows
constexpr int leastName = 80; // px of the column that names have at least

/// Rows apart enough for their marks. A long name is elided, so that the figures stay in sight: its tip has
/// all of it.
class PackRows : public QStyledItemDelegate {
public:
    explicit PackRows(QTreeView *view)
        : QStyledItemDelegate(view)
        , m_view(view)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index) + QSize(0, scaled(packSpace));
        if (index.column() == PackList::Name) {
            const QHeaderView *header = m_view->header();
            const int figures = header->length() - header->sectionSize(PackList::Name);
            const int room = std::max(m_view->viewport()->width() - figures, scaled(leastName));
            size.setWidth(std::min(size.width(), room));
        }
        return size;
    }

private:
    QTreeView *m_view; // its owner
};

} // namespace

LogbookWindow::LogbookWindow(
    const LogbookCommands::Parts &parts, const ViewState *state, const QString &ownFolder)
    : m_parts(parts)
    , m_state(state)
    , m_ownFolder(ownFolder)
    , m_actions(new LogbookActions(this))
    , m_later(new QTimer(this))
    , m_pack(LogbookFilter::everyPack)
{
    setObjectName(QStringLiteral("logbook"));
    setWindowTitle(tr("Varnel - logbook"));
    setWindowIcon(QIcon(QStringLiteral(":/Icons/varnel.png")));
    setAttribute(Qt::WA_QuitOnClose, false); // the main window says when the program ends
    m_later->setSingleShot(true);
    m_later->setInterval(gathering);
    m_actions->fill(menuBar());
    createParts();
    arrange();
    m_commands = new LogbookCommands(m_parts, m_actions, this);
    connectParts();
    connectCommands();
    onGround();
    showTrouble();
}

LogbookWindow::~LogbookWindow() = default;

void LogbookWindow::createParts()
{
    m_trouble = new QLabel(this);
    m_trouble->setObjectName(QStringLiteral("logbookTrouble"));
    m_trouble->setTextFormat(Qt::PlainText);
    m_trouble->setWordWrap(true);
    m_filter = new FilterLine(this);
    m_packList = new PackList(m_parts.logbook, this);
    m_packs = new QTreeView(this);
    m_packs->setObjectName(QStringLiteral("packs"));
    m_packs->setAccessibleName(tr("Packs"));
    m_packs->setModel(m_packList);
    m_packs->setRootIsDecorated(false);
    m_packs->setMinimumWidth(scaled(leastPacksWidth));
    m_packs->setUniformRowHeights(true);
    m_packs->setAllColumnsShowFocus(true);
    m_packs->header()->setStretchLastSection(false);
    m_packs->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_packs->setItemDelegate(new PackRows(m_packs));
    m_table = new RecordingTable(m_parts.logbook, this);
    m_view = new RecordingView(m_table, this);
    m_course = new CoursePanel(m_parts.logbook, this);
    m_status = new LogbookStatus(statusBar(), m_parts.reader);
}

void LogbookWindow::arrange()
{
    auto *middle = new QWidget(this);
    auto *column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->addWidget(m_filter);
    column->addWidget(m_view);
    m_oneAboveOther = new QSplitter(Qt::Vertical, this);
    m_oneAboveOther->addWidget(middle);
    m_oneAboveOther->addWidget(m_course);
    m_oneAboveOther->setStretchFactor(0, 1);
    m_oneAboveOther->setSizes({scaled(courseHeight), scaled(courseHeight)}); // the upper one takes the rest
    m_sideBySide = new QSplitter(this);
    m_sideBySide->addWidget(m_packs);
    m_sideBySide->addWidget(m_oneAboveOther);
    m_sideBySide->setStretchFactor(1, 1);
    m_sideBySide->setSizes({scaled(packsWidth), scaled(packsWidth)}); // the right one does
    for (QSplitter *splitter : {m_sideBySide, m_oneAboveOther})
        splitter->setChildrenCollapsible(false);
    auto *content = new QWidget(this);
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(m_trouble);
    layout->addWidget(m_sideBySide, 1);
    setCentralWidget(content);
    m_view->setFocus();
}

void LogbookWindow::connectParts()
{
    const Logbook *logbook = m_parts.logbook;
    connect(logbook, SIGNAL(opened()), this, SLOT(changeLater()));
    connect(logbook, SIGNAL(recordingsChanged(QVector<qint64>)), this, SLOT(changeLater()));
    connect(logbook, SIGNAL(recordingsRemoved(QVector<qint64>)), this, SLOT(changeLater()));
    connect(logbook, SIGNAL(packsChanged()), this, SLOT(changeLater()));
    connect(logbook, SIGNAL(troubleChanged()), this, SLOT(showTrouble()));
    connect(m_later, SIGNAL(timeout()), this, SLOT(refresh()));
    connect(m_state, SIGNAL(changed()), this, SLOT(onGround()));
    connect(m_filter, SIGNAL(changed()), this, SLOT(onFilter()));
    connect(m_filter, SIGNAL(changed()), m_view, SLOT(showStart()));
    connect(m_packList, SIGNAL(modelReset()), this, SLOT(spanFixedRows()));
    connect(m_packs->selectionModel(),
        SIGNAL(currentRowChanged(QModelIndex,QModelIndex)), this, SLOT(onPackChosen()));
    connect(m_view, SIGNAL(selected()), this, SLOT(onSelected()));
    connect(m_view, SIGNAL(activated(QModelIndex)), m_commands, SLOT(open()));
    connect(m_course, SIGNAL(chosen(qint64)), this, SLOT(onPointChosen(qint64)));
    connect(m_commands, SIGNAL(openWanted(QStringList)), this, SIGNAL(openWanted(QStringList)));
    connect(m_commands,
        SIGNAL(overlayWanted(QStringList,QStringList)), this, SIGNAL(overlayWanted(QStringList,QStringList)));
    connect(m_commands, SIGNAL(message(QString,int)), statusBar(), SLOT(showMessage(QString,int)));
    connect(m_commands, SIGNAL(packWanted(qint64)), this, SLOT(choosePack(qint64)));
    for (QWidget *widget :
        {static_cast<QWidget *>(m_view), static_cast<QWidget *>(m_packs), static_cast<QWidget *>(m_course)}) {
        widget->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(widget, SIGNAL(customContextMenuRequested(QPoint)), this, SLOT(onMenuWanted(QPoint)));
    }
}

void LogbookWindow::connectCommands()
{
    const LogbookActions &action = *m_actions;
    connect(action[LogbookCommand::ExportTable], SIGNAL(triggered()), this, SIGNAL(tableWanted()));
    connect(action[LogbookCommand::PrintTable], SIGNAL(triggered()), this, SLOT(printTable()));
    connect(action[LogbookCommand::Close], SIGNAL(triggered()), this, SLOT(close()));
    connect(action[LogbookCommand::SavePicture], SIGNAL(triggered()), this, SIGNAL(pictureWanted()));
    connect(action[LogbookCommand::PrintCourse], SIGNAL(triggered()), m_course, SLOT(print()));
    connect(action[LogbookCommand::Find], SIGNAL(triggered()), m_filter, SLOT(takeKeyboard()));
    connect(action[LogbookCommand::ShowAll], SIGNAL(triggered()), m_filter, SLOT(clear()));
    connect(action[LogbookCommand::Explain], SIGNAL(triggered()), m_view, SLOT(explain()));
    connect(action[LogbookCommand::SortByColumn], SIGNAL(triggered()), m_view, SLOT(sortByColumn()));
    connect(action[LogbookCommand::MoveLeft], SIGNAL(triggered()), m_view, SLOT(moveLeft()));
    connect(action[LogbookCommand::MoveRight], SIGNAL(triggered()), m_view, SLOT(moveRight()));
    connect(action[LogbookCommand::HideColumn], SIGNAL(triggered()), m_view, SLOT(hideColumn()));
    connect(action[LogbookCommand::ShowAllColumns], SIGNAL(triggered()), m_view, SLOT(showAllColumns()));
    connect(action[LogbookCommand::Folders], SIGNAL(triggered()), this, SLOT(chooseFolders()));
    connect(action[LogbookCommand::ReadAgain], SIGNAL(triggered()), m_parts.reader, SLOT(readAgain()));
    m_columnsMenu = new ColumnsMenu(m_view, this);
    m_actions->columns()->addMenu(m_columnsMenu);
    connect(m_view, SIGNAL(columnsMenuWanted(QPoint)), this, SLOT(showColumnsMenu(QPoint)));
}

QVector<qint64> LogbookWindow::shownIds() const
{
    return m_table->ids();
}

void LogbookWindow::readState(const VarnelSettings &settings)
{
    m_isFitted = m_sideBySide->restoreState(settings.value(SettingsKey::logbookSides).toByteArray());
    m_oneAboveOther->restoreState(settings.value(SettingsKey::logbookRows).toByteArray());
    m_packs->header()->setSortIndicator(
        settings.value(SettingsKey::logbookPackColumn, PackList::Name).toInt(),
        Qt::SortOrder(settings.value(SettingsKey::logbookPackOrder, Qt::AscendingOrder).toInt() != 0));
    m_packs->setSortingEnabled(true);
    m_view->restoreColumns(settings.value(SettingsKey::logbookColumns).toByteArray());
    m_course->choose(settings.value(SettingsKey::logbookQuantity).toInt(),
        settings.value(SettingsKey::logbookByDate, true).toBool());
}

void LogbookWindow::writeState(VarnelSettings *settings) const
{
    settings->setValue(SettingsKey::logbookSides, m_sideBySide->saveState());
    settings->setValue(SettingsKey::logbookRows, m_oneAboveOther->saveState());
    settings->setValue(SettingsKey::logbookPackColumn, m_packs->header()->sortIndicatorSection());
    settings->setValue(SettingsKey::logbookPackOrder, int(m_packs->header()->sortIndicatorOrder()));
    settings->setValue(SettingsKey::logbookColumns, m_view->horizontalHeader()->saveState());
    settings->setValue(SettingsKey::logbookQuantity, m_course->quantity());
    settings->setValue(SettingsKey::logbookByDate, m_course->isByDate());
}

// While files are read a change comes with each.
void LogbookWindow::changeLater()
{
    if (isVisible() && !m_later->isActive())
        m_later->start();
}

void LogbookWindow::refresh()
{
    m_isRefreshing = true;
    m_packList->refresh();
    if (m_pack != LogbookPack::none && !m_parts.logbook->pack(m_pack))
        m_pack = LogbookFilter::everyPack;
    m_packs->setCurrentIndex(m_packList->index(m_packList->rowOf(m_pack), PackList::Name));
    m_isRefreshing = false;
    m_course->setPack(m_pack);
    onFilter();
}

// They have a name alone.
void LogbookWindow::spanFixedRows()
{
    for (int row = 0; row < PackList::fixedRows; ++row)
        m_packs->setFirstColumnSpanned(row, QModelIndex(), true);
}

void LogbookWindow::onFilter()
{
    LogbookFilter filter = m_filter->filter();
    filter.pack = m_pack;
    m_table->setFilter(filter);
    onSelected();
}

void LogbookWindow::onPackChosen()
{
    if (m_isRefreshing)
        return;
    m_pack = m_packList->packAt(m_packs->currentIndex().row());
    m_course->setPack(m_pack);
    onFilter();
    m_view->showStart();
}

void LogbookWindow::choosePack(qint64 pack)
{
    m_pack = pack;
    refresh();
}

void LogbookWindow::onSelected()
{
    const QVector<qint64> chosen = m_view->selectedIds();
    m_commands->choose(chosen, m_pack);
    m_course->mark(chosen.size() == 1 ? chosen.first() : qint64());
    m_status->tell(m_table->rowCount(), m_parts.logbook->size(), chosen.size());
}

// Its row may be filtered out.
void LogbookWindow::onPointChosen(qint64 recording)
{
    if (m_view->choose(recording))
        return;
    m_filter->clear();
    m_view->choose(recording);
}

void LogbookWindow::onGround()
{
    m_course->setGround(m_state->switches().blackBackground, m_state->switches().distinctLines);
}

void LogbookWindow::showTrouble()
{
    m_trouble->setText(m_parts.logbook->trouble());
    m_trouble->setVisible(!m_trouble->text().isEmpty());
}

void LogbookWindow::printTable()
{
    const TablePages pages(*m_table, *m_view->horizontalHeader());
    PrintJob job;
    job.title = windowTitle();
    const LogbookPack *pack = m_parts.logbook->pack(m_pack);
    job.details = printDetails(pack ? QStringList(pack->name) : QStringList());
    job.size = TablePages::size();
    job.pages = pages.count();
    job.paintPage = [pages](QPainter &painter, int page) { pages.paint(painter, page); };
    printWithDialog(job, this);
}

void LogbookWindow::chooseFolders()
{
    FoldersDialog dialog(m_ownFolder, m_parts.logbook->folders(), this);
    connect(&dialog, SIGNAL(folderWanted(QWidget*)), this, SIGNAL(folderWanted(QWidget*)));
    if (dialog.exec() == QDialog::Accepted)
        m_parts.logbook->setFolders(dialog.folders());
}

void LogbookWindow::showColumnsMenu(const QPoint &place)
{
    m_actions->columns()->popup(place);
}

void LogbookWindow::onMenuWanted(const QPoint &place)
{
    auto *at = qobject_cast<QAbstractScrollArea *>(sender());
    QWidget *on = at ? at->viewport() : static_cast<QWidget *>(sender());
    QMenu *menu = sender() == m_view ? m_actions->recordings()
        : sender() == m_packs        ? m_actions->packs()
                                     : m_actions->course();
    menu->popup(on->mapToGlobal(place));
}

// Letters may be larger than what the width was made for.
void LogbookWindow::fitPacks()
{
    const QAbstractItemView *packs = m_packs;
    int wanted = 2 * m_packs->frameWidth();
    for (int column = 0; column < PackList::columnTotal; ++column)
        wanted += std::max(packs->sizeHintForColumn(column), m_packs->header()->sectionSizeHint(column));
    const QList<int> sizes = m_sideBySide->sizes();
    const int all = sizes[0] + sizes[1];
    const int width = std::min(wanted, all / 2);
    if (wanted > sizes[0])
        m_sideBySide->setSizes({width, all - width});
}

void LogbookWindow::showEvent(QShowEvent *)
{
    refresh();
    if (!std::exchange(m_isFitted, true))
        fitPacks();
}

void LogbookWindow::closeEvent(QCloseEvent *)
{
    emit closed();
}

void LogbookWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        QMainWindow::keyPressEvent(event);
    else if (!m_filter->isEmpty())
        m_filter->clear();
    else
        close();
}
