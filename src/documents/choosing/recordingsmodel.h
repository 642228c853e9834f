#pragma once

#include "documents/choosing/datafilesmodel.h"

/// The files of a file dialog, with the length of each recording where the dialog shows their kind.
class RecordingsModel : public DataFilesModel {
    Q_OBJECT

public:
    static constexpr int lengthColumn = 2;

    explicit RecordingsModel(QObject *parent);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

protected:
    QString columnText(const FolderEntry &entry, const FileDetails &details, int column) const override;
    FolderQuestion::Column sortedBy(int column) const override;
    bool wantsLength() const override { return true; }
};
