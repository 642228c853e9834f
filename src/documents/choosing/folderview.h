#pragma once

#include "files/disk/diskjobs.h"

#include <QObject>

class DataFilesModel;
class NameCompleter;
class QAbstractItemView;
class QFileDialog;
class QListView;
class QUrl;

/// Makes a file dialog of Qt's own show its folder by a DataFilesModel, so that no number of files and no
/// disk that does not answer keeps the window waiting.
class FolderView : public QObject {
    Q_OBJECT

public:
    /// To be made at once with `dialog`, which is not native and owns this. It takes `model`.
    FolderView(QFileDialog *dialog, DataFilesModel *model);

    /// Shows the folder `path`, or that of the file, once its disk has answered.
    void goTo(const QString &path);

private slots:
    void onListed(bool complete);
    void onDetailed();
    void goToUrl(const QUrl &url);
    void goToPlace(int index);
    void selectTyped(const QString &text);

private:
    QAbstractItemView *view(const char *name) const;
    void boundSelection();
    void fitColumns() const;
    void fitList(QListView *list) const;

    QFileDialog *m_dialog;
    DataFilesModel *m_model;
    NameCompleter *m_completer;
    QString m_destination; // is waited for
    DiskJobs m_jobs;
};
