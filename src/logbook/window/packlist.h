#pragma once

#include "logbook/logbookfilter.h"
#include "logbook/window/course/packcourse.h"

#include <QAbstractTableModel>
#include <QVector>

class Logbook;

/// The packs with how they fare; above them all recordings and those that are not assigned.
class PackList : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int fixedRows = 2; ///< above the packs: all, not assigned
    enum Column { Name, Health, PerYear, Cycles, Newest, columnTotal };

    /// `logbook` outlives this.
    explicit PackList(const Logbook *logbook, QObject *parent = nullptr);

    /// Asks the logbook anew.
    void refresh();
    /// As LogbookFilter::pack has it: an id, everyPack, or LogbookPack::none.
    qint64 packAt(int row) const;
    int rowOf(qint64 pack) const; ///< that of all recordings where there is none

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    struct Row {
        qint64 pack = LogbookFilter::everyPack;
        QString name;
        QString tip;
        PackCourse::Health health;
        int place = 0; ///< by name
    };

    QVector<Row> wanted() const;
    double keyOf(const Row &row) const;
    void sortRows(QVector<Row> *rows) const;
    QString textOf(const Row &row, int column) const;
    QString tipOf(const Row &row) const;

    const Logbook *m_logbook;
    QVector<Row> m_rows;
    int m_column = Name;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
