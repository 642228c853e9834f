#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

/// What a file dialog shows: folders, and files of some endings. Stands in for the dialog's own filter, which
/// prepares a regular expression anew for each file and would stop the program for seconds in a large folder.
class DataFilesModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// `endings` with their points, in lower case.
    DataFilesModel(const QStringList &endings, QObject *parent);

    void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QStringList m_endings;
};
