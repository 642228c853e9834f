#include "logbook/window/table/recordingtable.h"

#include "logbook/logbook.h"
#include "logbook/window/table/curvepicture.h"
#include "logbook/window/table/recordingcolumns.h"

#include <QColor>
#include <QCollator>
#include <QFont>

#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb quiet = 0xFF5B6773; // of what is gone, and of what is only offered

/// What a row is sorted by.
struct Key {
    double number;
    QCollatorSortKey text;
    qint64 id;
};

bool isOffered(const LogbookRecording &recording, int column)
{
    return column == RecordingColumns::Pack && recording.pack == LogbookPack::none;
}

} // namespace

RecordingTable::RecordingTable(const Logbook *logbook, QObject *parent)
    : QAbstractTableModel(parent)
    , m_logbook(logbook)
{
}

void RecordingTable::setFilter(const LogbookFilter &filter)
{
    m_filter = filter;
    refresh();
}

QVector<qint64> RecordingTable::wanted() const
{
    QVector<qint64> ids = m_logbook->recordings(m_filter);
    sortIds(&ids);
    return ids;
}

// What is not known comes last, in either order; what is equal stays sorted by start.
void RecordingTable::sortIds(QVector<qint64> *ids) const
{
    const bool byNumber = RecordingColumns::isNumber(m_column);
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const QCollatorSortKey nothing = collator.sortKey(QString());
    std::vector<Key> keys;
    keys.reserve(size_t(ids->size()));
    for (const qint64 id : qAsConst(*ids)) {
        const LogbookRecording *recording = m_logbook->recording(id);
        keys.push_back({RecordingColumns::number(*recording, m_column),
            byNumber ? nothing : collator.sortKey(RecordingColumns::text(*m_logbook, *recording, m_column)),
            id});
    }
    const bool descending = m_order == Qt::DescendingOrder;
    const auto before = [byNumber, descending, &nothing](const Key &a, const Key &b) {
        if (byNumber) {
            if (std::isnan(a.number) || std::isnan(b.number))
                return !std::isnan(a.number) && std::isnan(b.number);
            return descending ? b.number < a.number : a.number < b.number;
        }
        const bool isEmpty = a.text.compare(nothing) == 0;
        if (isEmpty || b.text.compare(nothing) == 0)
            return !isEmpty && b.text.compare(nothing) == 0;
        return descending ? b.text < a.text : a.text < b.text;
    };
    std::stable_sort(keys.begin(), keys.end(), before);
    std::transform(keys.begin(), keys.end(), ids->begin(), [](const Key &key) { return key.id; });
}

void RecordingTable::refresh()
{
    const QVector<qint64> ids = wanted();
    if (ids == m_ids) {
        if (!ids.isEmpty())
            emit dataChanged(index(0, 0), index(ids.size() - 1, RecordingColumns::count - 1));
        return;
    }
    beginResetModel();
    m_ids = ids;
    endResetModel();
}

void RecordingTable::sort(int column, Qt::SortOrder order)
{
    m_column = qBound(0, column, int(RecordingColumns::count) - 1);
    m_order = order;
    refresh();
}

int RecordingTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_ids.size();
}

int RecordingTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(RecordingColumns::count);
}

QString RecordingTable::packText(const LogbookRecording &recording) const
{
    if (recording.pack != LogbookPack::none)
        return m_logbook->packName(recording.pack);
    const QString offered = m_logbook->packName(m_logbook->packToOffer(recording.id));
    return offered.isEmpty() ? QString() : offered + QStringLiteral(" ?");
}

QVariant RecordingTable::data(const QModelIndex &index, int role) const
{
    const LogbookRecording *recording = m_logbook->recording(m_ids.value(index.row()));
    if (!index.isValid() || !recording)
        return {};
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column == RecordingColumns::Pack ? packText(*recording)
                                                : RecordingColumns::text(*m_logbook, *recording, column);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter)
            | int(RecordingColumns::isNumber(column) && column != RecordingColumns::Start ? Qt::AlignRight
                                                                                          : Qt::AlignLeft);
    case Qt::ForegroundRole:
        return recording->isGone || isOffered(*recording, column) ? QVariant(QColor(quiet)) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setItalic(recording->isGone || isOffered(*recording, column));
        font.setBold(recording->isLive);
        return font.italic() || font.bold() ? QVariant(font) : QVariant();
    }
    case Qt::ToolTipRole:
        return curveToolTip(recording->figures.curve, RecordingColumns::allText(*m_logbook, *recording));
    default:
        return {};
    }
}

QVariant RecordingTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return RecordingColumns::title(section);
    if (role == Qt::ToolTipRole)
        return RecordingColumns::tip(section);
    return {};
}
