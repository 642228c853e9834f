#include "documents/recordingsmodel.h"

#include "journal/recordinglength.h"

#include <QFileSystemModel>

RecordingsModel::RecordingsModel(QObject *parent)
    : DataFilesModel({QStringLiteral(".acp")}, parent)
{
}

QVariant RecordingsModel::data(const QModelIndex &index, int role) const
{
    if (index.column() == lengthColumn && role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (index.column() == lengthColumn && role == Qt::DisplayRole)
        return lengthOf(index.sibling(index.row(), 0).data(QFileSystemModel::FilePathRole).toString());
    return DataFilesModel::data(index, role);
}

QVariant RecordingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == lengthColumn && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr("Length");
    return DataFilesModel::headerData(section, orientation, role);
}

QString RecordingsModel::lengthOf(const QString &path) const
{
    const auto known = m_lengths.constFind(path);
    if (known != m_lengths.constEnd())
        return *known;
    const int seconds = recordingLength(path);
    const QString text
        = seconds < 0 ? QString() : QString::asprintf("%d:%02d", seconds / 3600, seconds / 60 % 60);
    m_lengths.insert(path, text);
    return text;
}
