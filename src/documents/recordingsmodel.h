#pragma once

#include "documents/datafilesmodel.h"

#include <QHash>

/// The files of a file dialog, with the length of each recording where the dialog shows their kind.
class RecordingsModel : public DataFilesModel {
    Q_OBJECT

public:
    static constexpr int lengthColumn = 2;

    explicit RecordingsModel(QObject *parent);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString lengthOf(const QString &path) const;

    mutable QHash<QString, QString> m_lengths; ///< by path; each file is read once
};
