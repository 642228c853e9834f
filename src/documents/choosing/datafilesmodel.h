#pragma once

#include "documents/choosing/folderlisting.h"

#include <QAbstractProxyModel>
#include <QFileSystemWatcher>
#include <QIcon>
#include <QSet>
#include <QTimer>

#include <memory>

class DiskJobs;
class QFileSystemModel;

/// What a file dialog shows of its folder: sub-folders, and files of some endings. Stands in for the dialog's
/// own listing, which stops the program for seconds in a large folder: here all that takes time, or may wait
/// for a disk, is done by threads that nobody waits for. The folder is the invalid index, all rows are its
/// own. The source, the dialog's QFileSystemModel, is asked for single files only, as somebody uses them.
class DataFilesModel : public QAbstractProxyModel {
    Q_OBJECT

public:
    /// `endings` with their points; none stands for all files.
    explicit DataFilesModel(const QStringList &endings, QObject *parent = nullptr);
    ~DataFilesModel() override;

    /// Lists files of these from now on.
    void setEndings(const QStringList &endings);
    /// What is listed.
    const FolderQuestion &question() const { return m_question; }
    /// What is shown now.
    const FolderListing &listing() const { return m_listing; }

    void setSourceModel(QAbstractItemModel *model) override;
    QModelIndex mapToSource(const QModelIndex &index) const override;
    QModelIndex mapFromSource(const QModelIndex &index) const override;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    /// A folder can't be entered until its disk has answered.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order) override;

public slots:
    /// Lists hidden files and folders, too.
    void showHidden(bool on);

signals:
    /// Another listing is shown, or none while one is waited for.
    void listed(bool complete);
    /// More is known of rows that are shown. No dataChanged(), with which list views lay out all rows anew.
    void detailed();

protected:
    /// The text of `column`, of what may be unknown yet.
    virtual QString columnText(const FolderEntry &entry, const FileDetails &details, int column) const;
    /// What `column` sorts by.
    virtual FolderQuestion::Column sortedBy(int column) const { return FolderQuestion::Column(column); }
    virtual bool wantsLength() const { return false; }

private slots:
    void enterFolder();
    void list();
    void askDetails();
    void takeSourceRows(const QModelIndex &parent, int first, int last);
    void renameEntry(const QString &folder, const QString &before, const QString &now);

private:
    enum State : char { Unknown, Known, Writable };
    struct Answer {
        FileDetails details;
        int generation;
    };
    /// What is known of the folder that is shown, and asked.
    struct Visit {
        QHash<QString, Answer> known; // by name
        QSet<QString> asked; // names, answer pending
        QStringList wanted; // names, to be asked
        bool isListing = false;
        bool isOutdated = false; // it is listed anew once it has been
        bool isReadingFiles = false;
    };

    QFileSystemModel *files() const;
    QString pathOf(const QModelIndex &index) const;
    FileDetails want(const FolderEntry &entry) const;
    void ask(const QStringList &names, bool areFiles);
    void take(const FolderListing &listing);
    void show(const FolderListing &listing);
    void setState(const QString &name, const FileDetails &details);
    void discard(FolderListing *listing);
    void replace(const FolderListing &listing);
    void forgetRemoved(const FolderListing &now);
    QList<QPersistentModelIndex> usedIndexes() const;

    FolderQuestion m_question;
    FolderListing m_listing;
    mutable Visit m_visit;
    QByteArray m_states; // of the rows, as in m_visit.known
    mutable QTimer m_asking; // once the views have said what they want
    std::unique_ptr<DiskJobs> m_jobs; // of this folder
    QFileSystemWatcher m_watcher; // of it alone
    QIcon m_fileIcon;
    QIcon m_folderIcon;
    int m_generation = 0; // of the listing; what was known of an older one may have changed
};
