#pragma once

#include "files/disk/diskjobs.h"

#include <QCompleter>
#include <QStringListModel>

class DataFilesModel;
class QLineEdit;

/// Completes what is typed in a file dialog, be it a name in its folder or a path. Takes the place of the
/// dialog's own, which looks at all names of a folder at each key.
class NameCompleter : public QCompleter {
    Q_OBJECT

public:
    /// Both outlive this.
    NameCompleter(QLineEdit *edit, const DataFilesModel *model);

    QString pathFromIndex(const QModelIndex &index) const override;
    QStringList splitPath(const QString &path) const override;

public slots:
    /// Offers the names in the folder that `text` begins with.
    void follow(const QString &text);
    /// Offers those of the dialog's folder as it is listed now.
    void refresh();

private:
    QLineEdit *m_edit;
    const DataFilesModel *m_model;
    QStringListModel m_names;
    QString m_prefix; // of the text, up to its last separator
    DiskJobs m_jobs;
};
