#include "documents/datafilesmodel.h"

#include <QFileSystemModel>

#include <algorithm>

DataFilesModel::DataFilesModel(const QStringList &endings, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_endings(endings)
{
}

bool DataFilesModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto *files = static_cast<const QFileSystemModel *>(sourceModel());
    const QModelIndex index = files->index(row, 0, parent);
    const QString name = index.data(QFileSystemModel::FileNameRole).toString();
    const auto ends = [&name](const QString &ending) { return name.endsWith(ending, Qt::CaseInsensitive); };
    return std::any_of(m_endings.begin(), m_endings.end(), ends) || files->isDir(index);
}
