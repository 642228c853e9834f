#include "logbook/window/table/recordingview.h"

#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingtable.h"
#include "widgets/displayscale.h"

#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int cellSpace = 14; // px beside a text
constexpr int arrowSpace = 22; // px for the arrow of the sorted column
constexpr int rowSpace = 6;

} // namespace

RecordingView::RecordingView(RecordingTable *table, QWidget *parent)
    : QTableView(parent)
    , m_table(table)
{
    setModel(table);
    setObjectName(QStringLiteral("recordings"));
    setAccessibleName(tr("Recordings"));
    setSelectionBehavior(SelectRows);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + scaled(rowSpace));
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    fitColumns();
    connect(table, SIGNAL(modelAboutToBeReset()), this, SLOT(keepSelection()));
    connect(table, SIGNAL(modelReset()), this, SLOT(restoreSelection()));
    connect(
        selectionModel(), SIGNAL(selectionChanged(QItemSelection,QItemSelection)), this, SIGNAL(selected()));
    connect(horizontalHeader(), SIGNAL(customContextMenuRequested(QPoint)), this, SLOT(onHeaderMenu(QPoint)));
}

void RecordingView::fitColumns()
{
    QFont bold = font(); // of rows that are being recorded
    bold.setBold(true);
    for (int column = 0; column < RecordingColumns::count; ++column) {
        const bool isFigure = RecordingColumns::isNumber(column) && column != RecordingColumns::Start;
        const QFontMetrics letters(isFigure ? font() : bold);
        int width = letters.horizontalAdvance(RecordingColumns::title(column)) + scaled(arrowSpace);
        const QStringList samples = RecordingColumns::samples(column);
        for (const QString &text : samples)
            width = std::max(width, letters.horizontalAdvance(text) + scaled(cellSpace));
        setColumnWidth(column, width);
    }
}

void RecordingView::restoreColumns(const QByteArray &state)
{
    horizontalHeader()->restoreState(state);
    setSortingEnabled(true); // sorts as the header says: by itself by the first column, downwards
}

int RecordingView::shownColumns() const
{
    return horizontalHeader()->count() - horizontalHeader()->hiddenSectionCount();
}

QVector<qint64> RecordingView::selectedIds() const
{
    QVector<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    std::sort(rows.begin(), rows.end());
    QVector<qint64> ids;
    for (const int row : qAsConst(rows))
        ids.append(m_table->idAt(row));
    return ids;
}

qint64 RecordingView::currentId() const
{
    return m_table->idAt(currentIndex().row());
}

int RecordingView::currentColumn() const
{
    return std::max(0, currentIndex().column());
}

bool RecordingView::choose(qint64 id)
{
    const int row = m_table->rowOf(id);
    if (row < 0)
        return false;
    const QModelIndex index = m_table->index(row, currentColumn());
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
    return true;
}

void RecordingView::keepSelection()
{
    const QVector<qint64> ids = selectedIds();
    m_selected = QSet<qint64>(ids.begin(), ids.end());
    m_current = currentId();
    m_currentColumn = currentColumn();
}

// Ranges, not rows: all of ten thousand may be selected.
void RecordingView::restoreSelection()
{
    const QVector<qint64> &ids = m_table->ids();
    QItemSelection selection;
    for (int row = 0; !m_selected.isEmpty() && row < ids.size(); ++row) {
        if (!m_selected.contains(ids[row]))
            continue;
        const int first = row;
        while (row + 1 < ids.size() && m_selected.contains(ids[row + 1]))
            ++row;
        selection.select(m_table->index(first, 0), m_table->index(row, RecordingColumns::count - 1));
    }
    const QModelIndex current // a key's command acts on its column
        = m_table->index(m_table->rowOf(m_current), m_currentColumn);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (m_selected.contains(m_current))
        scrollTo(current);
    emit selected(); // a reset tells no change
}

void RecordingView::showStart()
{
    if (!selectionModel()->hasSelection())
        scrollToTop();
}

void RecordingView::sortByColumn()
{
    const QHeaderView *header = horizontalHeader();
    const int column = currentColumn();
    const bool again = header->sortIndicatorSection() == column;
    QTableView::sortByColumn(column,
        again && header->sortIndicatorOrder() == Qt::AscendingOrder ? Qt::DescendingOrder
                                                                    : Qt::AscendingOrder);
}

void RecordingView::moveColumn(int by)
{
    QHeaderView *header = horizontalHeader();
    const int from = header->visualIndex(currentColumn());
    int to = from + by;
    while (header->isSectionHidden(header->logicalIndex(to)))
        to += by;
    header->moveSection(from, to); // not beyond the last one
}

void RecordingView::moveLeft()
{
    moveColumn(-1);
}

void RecordingView::moveRight()
{
    moveColumn(1);
}

void RecordingView::hideColumn()
{
    setColumnShown(currentColumn(), false);
}

// One stays, or nothing would be left to click.
void RecordingView::setColumnShown(int column, bool shown)
{
    if (shown || shownColumns() > 1)
        setColumnHidden(column, !shown);
}

void RecordingView::showAllColumns()
{
    for (int column = 0; column < RecordingColumns::count; ++column)
        showColumn(column);
}

void RecordingView::explain()
{
    const QModelIndex index = currentIndex();
    QToolTip::showText(viewport()->mapToGlobal(visualRect(index).bottomLeft()),
        index.data(Qt::ToolTipRole).toString(), viewport());
}

void RecordingView::onHeaderMenu(const QPoint &place)
{
    const int column = horizontalHeader()->logicalIndexAt(place);
    if (column >= 0) {
        const int row = std::max(0, currentIndex().row());
        selectionModel()->setCurrentIndex(m_table->index(row, column), QItemSelectionModel::NoUpdate);
    }
    emit columnsMenuWanted(horizontalHeader()->mapToGlobal(place));
}

void RecordingView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        explain();
    else if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        event->ignore(); // with Control a command's key, which opens nothing while that is off
    else
        QTableView::keyPressEvent(event);
}
