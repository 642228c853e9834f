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
    void paint(QPainter &painter, int page) const; ///< leaves it scaled

private:
    struct Column {
        bool isRight = false;
        int width = 0;
    };

    void fitColumns();
    int rowsOnPage() const;
    void paintRow(QPainter &painter, const QStringList &texts, double top) const;

    QVector<Column> m_columns;
    int m_width = 0; // of all
    QStringList m_titles;
    QVector<QStringList> m_rows;
};
