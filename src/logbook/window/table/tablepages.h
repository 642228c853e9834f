#pragma once

#include <QSizeF>
#include <QStringList>
#include <QVector>

class QAbstractItemModel;
class QHeaderView;
class QPainter;

/// A table as it is printed: the columns that are shown, in their order, and all rows, on as many pages as
/// these take.
class TablePages {
public:
    /// What `model` holds now under `header`.
    TablePages(const QAbstractItemModel &model, const QHeaderView &header);

    int count() const; ///< of pages, at least one
    static QSizeF size(); ///< of each, in the units that it is painted in
    void paint(QPainter &painter, int page) const;

private:
    struct Column {
        int width = 0;
        bool isRight = false;
    };

    void paintRow(QPainter &painter, const QStringList &texts, double top, double factor) const;

    QVector<Column> m_columns;
    QStringList m_titles;
    QVector<QStringList> m_rows;
};
