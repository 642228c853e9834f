#include "logbook/window/packlist.h"

#include "data/figuretext.h"
#include "logbook/logbook.h"
#include "widgets/displayscale.h"

#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr QRgb good = 0xFF1E8A3C;
constexpr QRgb worn = 0xFFC62828;
constexpr int markSize = 12; // px

/// A disc, or a triangle for a pack that is worn out or has a weak cell: they differ in more than colour.
QPixmap mark(bool isBad)
{
    const int size = scaled(markSize);
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(isBad ? worn : good));
    const QRectF inside = QRectF(pixmap.rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isBad)
        painter.drawPolygon(
            QPolygonF({{inside.center().x(), inside.top()}, inside.bottomRight(), inside.bottomLeft()}));
    else
        painter.drawEllipse(inside);
    return pixmap;
}

QString packTip(const LogbookPack &pack)
{
    QStringList lines = {pack.name};
    if (pack.cells > 0)
        lines.append(FigureText::cells(pack.cells, pack.cellType));
    if (pack.capacity > 0)
        lines.append(PackList::tr("%1 mAh nominal").arg(FigureText::fixed(pack.capacity, 0)));
    else
        lines.append(PackList::tr("Give the nominal capacity to see the state of health."));
    if (!pack.note.isEmpty())
        lines.append(pack.note);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

PackList::PackList(const Logbook *logbook, QObject *parent)
    : QAbstractTableModel(parent)
    , m_logbook(logbook)
{
}

QVector<PackList::Row> PackList::wanted() const
{
    LogbookFilter notAssigned;
    notAssigned.pack = LogbookPack::none;
    Row all{LogbookFilter::everyPack, tr("All recordings"), tr("Every recording, of whichever pack"), {}};
    all.health.recordings = m_logbook->size();
    Row none{LogbookPack::none, tr("Not assigned"), tr("Recordings without a pack"), {}};
    none.health.recordings = m_logbook->recordings(notAssigned).size();
    QVector<Row> rows = {all, none};
    const QHash<qint64, PackCourse::Recordings> recordings = PackCourse::byPack(*m_logbook);
    for (const LogbookPack &pack : m_logbook->packs())
        rows.append({pack.id, pack.name, packTip(pack), PackCourse::healthOf(pack, recordings.value(pack.id)),
            rows.size()});
    return rows;
}

double PackList::keyOf(const Row &row) const
{
    constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
    const PackCourse::Health &health = row.health;
    switch (m_column) {
    case Health:
        return health.percent.value_or(unknown);
    case PerYear:
        return health.perYear.value_or(unknown);
    case Cycles:
        return health.cycles;
    case Newest:
        return health.newest != 0 ? double(health.newest) : unknown;
    default:
        return row.place;
    }
}

// The two above the packs stay; what is not known comes last, in either order.
void PackList::sortRows(QVector<Row> *rows) const
{
    const bool descending = m_order == Qt::DescendingOrder;
    std::stable_sort(rows->begin() + fixedRows, rows->end(), [=](const Row &a, const Row &b) {
        const double first = keyOf(a);
        const double second = keyOf(b);
        if (std::isnan(first) || std::isnan(second))
            return !std::isnan(first) && std::isnan(second);
        return descending ? second < first : first < second;
    });
}

void PackList::refresh()
{
    QVector<Row> rows = wanted();
    sortRows(&rows);
    const bool same = std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(),
        [](const Row &a, const Row &b) { return a.pack == b.pack; });
    if (same) {
        m_rows = rows;
        emit dataChanged(index(0, 0), index(m_rows.size() - 1, columnTotal - 1));
        return;
    }
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

void PackList::sort(int column, Qt::SortOrder order)
{
    m_column = column;
    m_order = order;
    refresh();
}

qint64 PackList::packAt(int row) const
{
    return m_rows.value(row).pack;
}

int PackList::rowOf(qint64 pack) const
{
    const auto row
        = std::find_if(m_rows.begin(), m_rows.end(), [pack](const Row &one) { return one.pack == pack; });
    return row == m_rows.end() ? 0 : int(row - m_rows.begin());
}

int PackList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int PackList::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columnTotal);
}

QString PackList::textOf(const Row &row, int column) const
{
    const PackCourse::Health &health = row.health;
    switch (column) {
    case Name:
        return row.pack > LogbookPack::none
            ? row.name
            : row.name + QStringLiteral(" (") + FigureText::fixed(health.recordings, 0) + QLatin1Char(')');
    case Health:
        return health.percent ? PackCourse::percentText(*health.percent) + QStringLiteral(" %") : QString();
    case PerYear:
        return health.perYear ? (*health.perYear > 0 ? QStringLiteral("+") : QString())
                + FigureText::fixed(*health.perYear, 0) + QStringLiteral(" %")
                              : QString();
    case Cycles:
        return row.pack > LogbookPack::none ? FigureText::fixed(health.cycles, 0) : QString();
    default:
        return health.newest == 0
            ? QString()
            : QLocale().toString(QDateTime::fromMSecsSinceEpoch(health.newest).date(), QLocale::ShortFormat);
    }
}

QString PackList::tipOf(const Row &row) const
{
    QStringList lines = {row.tip};
    if (row.health.isWornOut())
        lines.append(tr("Worn out: below 80 % of its nominal capacity."));
    if (row.health.hasWeakCell)
        lines.append(
            tr("Cell %1 is weak: %2 mV between the highest and the lowest when the pack is empty.")
                .arg(QString::number(row.health.lowestCell + 1), FigureText::fixed(row.health.spread, 0)));
    return lines.join(QLatin1Char('\n'));
}

QVariant PackList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[index.row()];
    const int column = index.column();
    const bool isWorn = row.health.isWornOut();
    const bool isBad = isWorn || row.health.hasWeakCell;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, column);
    case Qt::AccessibleTextRole:
        if (column != Health || !isBad)
            return textOf(row, column);
        return textOf(row, column) + QStringLiteral(", ") + (isWorn ? tr("worn out") : tr("weak cell"));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter) | int(column == Name ? Qt::AlignLeft : Qt::AlignRight);
    case Qt::DecorationRole:
        return column == Health && (row.health.percent || isBad) ? QVariant(mark(isBad)) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setBold(isWorn && column <= Health);
        return font.bold() ? QVariant(font) : QVariant();
    }
    case Qt::ToolTipRole:
        return tipOf(row);
    default:
        return {};
    }
}

QVariant PackList::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const char *const titles[] = {QT_TR_NOOP("Pack"), QT_TR_NOOP("Health"), QT_TR_NOOP("Per year"),
        QT_TR_NOOP("Cycles"), QT_TR_NOOP("Newest")};
    static const char *const tips[] = {QT_TR_NOOP("Name of the battery pack"),
        QT_TR_NOOP("State of health: what the newest full discharge gave, of the nominal capacity"),
        QT_TR_NOOP("By how much the state of health changes in a year"),
        QT_TR_NOOP("Charges, or discharges where there are more of these"),
        QT_TR_NOOP("Start of the newest recording")};
    if (orientation != Qt::Horizontal || section < 0 || section >= columnTotal)
        return {};
    if (role == Qt::DisplayRole)
        return tr(titles[section]);
    return role == Qt::ToolTipRole ? QVariant(tr(tips[section])) : QVariant();
}
