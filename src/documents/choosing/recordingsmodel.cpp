#include "documents/choosing/recordingsmodel.h"

RecordingsModel::RecordingsModel(QObject *parent)
    : DataFilesModel({QStringLiteral(".acp")}, parent)
{
}

QVariant RecordingsModel::data(const QModelIndex &index, int role) const
{
    if (index.column() == lengthColumn && role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return DataFilesModel::data(index, role);
}

QVariant RecordingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == lengthColumn && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr("Length");
    return DataFilesModel::headerData(section, orientation, role);
}

QString RecordingsModel::columnText(const FolderEntry &entry, const FileDetails &details, int column) const
{
    if (column != lengthColumn)
        return DataFilesModel::columnText(entry, details, column);
    const int seconds = details.seconds;
    return seconds < 0 ? QString() : QString::asprintf("%d:%02d", seconds / 3600, seconds / 60 % 60);
}

FolderQuestion::Column RecordingsModel::sortedBy(int column) const
{
    return column == lengthColumn ? FolderQuestion::Length : DataFilesModel::sortedBy(column);
}
