#pragma once

#include "logbook/logbookfilter.h"

#include <QAbstractTableModel>
#include <QVector>

class Logbook;
struct LogbookRecording;

/// The recordings that a filter lets pass, a row each, sorted by one of RecordingColumns.
class RecordingTable : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Empty until the first refresh(). `logbook` outlives this.
    explicit RecordingTable(const Logbook *logbook, QObject *parent = nullptr);

    const LogbookFilter &filter() const { return m_filter; }
    void setFilter(const LogbookFilter &filter); ///< and refreshes
    /// Asks the logbook anew. The rows are reset only where others are shown, or in another order.
    void refresh();

    const QVector<qint64> &ids() const { return m_ids; } ///< of the rows, from the first on
    qint64 idAt(int row) const { return m_ids.value(row); }
    int rowOf(qint64 id) const { return m_ids.indexOf(id); } ///< -1 where it is not shown

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    QVector<qint64> wanted() const;
    void sortIds(QVector<qint64> *ids) const;
    QString packText(const LogbookRecording &recording) const;

    const Logbook *m_logbook;
    LogbookFilter m_filter;
    QVector<qint64> m_ids;
    int m_column = 0;
    Qt::SortOrder m_order = Qt::DescendingOrder; // the newest first
};
