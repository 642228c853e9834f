#include "documents/choosing/datafilesmodel.h"

#include "files/disk/diskjobs.h"
#include "files/varelstyleditemdelegate.h"

#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QLocale>

namespace {

constexpr int columns = 4;
constexpr int mostAsked = 200; // files; those that were scrolled past are asked for when they come back

} // namespace

DataFilesModel::DataFilesModel(const QStringList &endings, QObject *parent)
    : QAbstractProxyModel(parent)
{
    m_question.endings = endings;
    const QFileIconProvider icons;
    m_fileIcon = icons.icon(QFileIconProvider::File);
    m_folderIcon = icons.icon(QFileIconProvider::Folder);
    m_asking.setSingleShot(true);
    connect(&m_asking, SIGNAL(timeout()), this, SLOT(askDetails()));
    connect(&m_watcher, SIGNAL(directoryChanged(QString)), this, SLOT(list()));
}

DataFilesModel::~DataFilesModel()
{
    if (m_jobs)
        discard(&m_listing);
}

void DataFilesModel::showHidden(bool on)
{
    if (m_question.hidden == on)
        return;
    m_question.hidden = on;
    list();
}

void DataFilesModel::setEndings(const QStringList &endings)
{
    if (m_question.endings == endings)
        return;
    m_question.endings = endings;
    list();
}

void DataFilesModel::setSourceModel(QAbstractItemModel *model)
{
    QAbstractProxyModel::setSourceModel(model);
    connect(model, SIGNAL(rootPathChanged(QString)), this, SLOT(enterFolder()));
    connect(
        model, SIGNAL(rowsInserted(QModelIndex,int,int)), this, SLOT(takeSourceRows(QModelIndex,int,int)));
    connect(model,
        SIGNAL(fileRenamed(QString,QString,QString)), this, SLOT(renameEntry(QString,QString,QString)));
    enterFolder();
}

QModelIndex DataFilesModel::mapToSource(const QModelIndex &index) const
{
    return sourceModel() ? files()->index(pathOf(index), index.isValid() ? index.column() : 0)
                         : QModelIndex();
}

QModelIndex DataFilesModel::mapFromSource(const QModelIndex &index) const
{
    if (files()->filePath(index.parent()) != m_question.folder)
        return {};
    return this->index(
        m_listing.rowOf(index.data(QFileSystemModel::FileNameRole).toString()), index.column());
}

QModelIndex DataFilesModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex DataFilesModel::parent(const QModelIndex & /*index*/) const
{
    return {};
}

int DataFilesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_listing.entries.size();
}

int DataFilesModel::columnCount(const QModelIndex & /*parent*/) const
{
    return columns;
}

bool DataFilesModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

bool DataFilesModel::canFetchMore(const QModelIndex & /*parent*/) const
{
    return false;
}

Qt::ItemFlags DataFilesModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return QAbstractProxyModel::flags(index) & Qt::ItemIsDropEnabled;
    const FolderEntry &entry = m_listing.entries.at(index.row());
    // Views ask this of all rows at once.
    Qt::ItemFlags flags = Qt::ItemNeverHasChildren;
    const char state = m_states.at(index.row());
    if (state == Unknown && entry.isFolder)
        return flags;
    flags |= Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    if (state == Writable && index.column() == 0)
        flags |= entry.isFolder ? Qt::ItemIsEditable | Qt::ItemIsDropEnabled : Qt::ItemIsEditable;
    return flags;
}

QVariant DataFilesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const FolderEntry &entry = m_listing.entries.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == 0 ? entry.name : columnText(entry, want(entry), index.column());
    case Qt::EditRole:
    case QFileSystemModel::FileNameRole:
        return entry.name;
    case QFileSystemModel::FilePathRole:
        return pathOf(index);
    case VarelStyledItemDelegate::labelRole:
        return index.column() == 0 ? want(entry).label : QVariant();
    case Qt::DecorationRole:
        return index.column() == 0 ? QVariant(entry.isFolder ? m_folderIcon : m_fileIcon) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == 1 ? QVariant(Qt::AlignTrailing | Qt::AlignVCenter) : QVariant();
    case QFileSystemModel::FilePermissions:
        return mapToSource(index).data(role);
    default:
        return {};
    }
}

QString DataFilesModel::columnText(const FolderEntry &entry, const FileDetails &details, int column) const
{
    if (column == FolderQuestion::Type)
        return typeText(entry.name, entry.isFolder);
    if (!details.modified.isValid())
        return {}; // not known yet
    if (column == FolderQuestion::Modified)
        return QLocale::system().toString(details.modified, QLocale::ShortFormat);
    return entry.isFolder ? QString() : QLocale::system().formattedDataSize(details.size);
}

QVariant DataFilesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return sourceModel() ? sourceModel()->headerData(section, orientation, role) : QVariant();
}

void DataFilesModel::sort(int column, Qt::SortOrder order)
{
    const FolderQuestion::Column by = sortedBy(column);
    const bool descending = order == Qt::DescendingOrder;
    if (m_question.column == by && m_question.descending == descending)
        return;
    m_question.column = by;
    m_question.descending = descending;
    list();
}

QFileSystemModel *DataFilesModel::files() const
{
    return static_cast<QFileSystemModel *>(sourceModel());
}

QString DataFilesModel::pathOf(const QModelIndex &index) const
{
    return index.isValid() ? pathInFolder(m_question.folder, m_listing.entries.at(index.row()).name)
                           : m_question.folder;
}

void DataFilesModel::enterFolder()
{
    const QString path = files()->rootPath();
    // The root of the drives has no path, or the one that stands for none.
    const QString folder = path == QLatin1String(".") ? QString() : path;
    m_jobs = std::make_unique<DiskJobs>(this); // what is still looked for elsewhere is of no use
    m_visit = {};
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    if (!folder.isEmpty())
        m_watcher.addPath(folder);
    if (!m_listing.entries.isEmpty()) {
        beginRemoveRows({}, 0, m_listing.entries.size() - 1);
        discard(&m_listing);
        endRemoveRows();
    }
    m_question.folder = folder;
    list();
}

void DataFilesModel::list()
{
    m_visit.isOutdated = m_visit.isListing;
    if (m_visit.isListing || !m_jobs)
        return;
    m_visit.isListing = true;
    if (m_listing.entries.isEmpty())
        emit listed(false);
    m_jobs->run([question = m_question] { return listFolder(question); },
        [this](const FolderListing &listing) { take(listing); });
}

void DataFilesModel::take(const FolderListing &listing)
{
    m_visit.isListing = false;
    ++m_generation;
    if (m_listing.entries.isEmpty() && !listing.entries.isEmpty()) {
        beginInsertRows({}, 0, listing.entries.size() - 1);
        show(listing);
        endInsertRows();
    } else {
        forgetRemoved(listing);
        replace(listing);
    }
    emit listed(true);
    if (m_visit.isOutdated)
        list();
}

// One of the same folder comes as a change of layout: views, selection and current file stay.
void DataFilesModel::replace(const FolderListing &listing)
{
    FolderListing before = m_listing;
    emit layoutAboutToBeChanged();
    const QModelIndexList old = persistentIndexList();
    show(listing);
    QModelIndexList now;
    for (const QModelIndex &index : old)
        now.append(this->index(listing.rowOf(before.entries.at(index.row()).name), index.column()));
    changePersistentIndexList(old, now);
    emit layoutChanged();
    discard(&before);
}

void DataFilesModel::show(const FolderListing &listing)
{
    m_listing = listing;
    m_states.fill(Unknown, listing.entries.size());
    for (auto known = m_visit.known.constBegin(); known != m_visit.known.constEnd(); ++known)
        setState(known.key(), known->details);
}

void DataFilesModel::setState(const QString &name, const FileDetails &details)
{
    const int row = m_listing.rowOf(name);
    if (row >= 0)
        m_states[row] = details.isWritable ? Writable : Known;
}

// To free many names takes time.
void DataFilesModel::discard(FolderListing *listing)
{
    const auto old = std::make_shared<FolderListing>();
    std::swap(*old, *listing);
    m_jobs->run([old] { return *old = {}; }, [](const FolderListing &) {});
}

// The source still holds what it was once asked for; its own slot takes a list of what there is. Of what was
// selected, the dialog hears.
void DataFilesModel::forgetRemoved(const FolderListing &now)
{
    const QModelIndex root = mapToSource({});
    QStringList there;
    for (int row = 0; row < files()->rowCount(root); ++row) {
        const QString name = files()->fileName(files()->index(row, 0, root));
        if (!m_listing.rows.contains(name) || now.rows.contains(name))
            there.append(name);
    }
    QMetaObject::invokeMethod(files(), "_q_directoryChanged", Qt::DirectConnection,
        Q_ARG(QString, m_question.folder), Q_ARG(QStringList, there));
    const QList<QPersistentModelIndex> used = usedIndexes();
    for (const QPersistentModelIndex &index : used) {
        if (!index.isValid() || now.rows.contains(m_listing.entries.at(index.row()).name))
            continue;
        beginRemoveRows({}, index.row(), index.row());
        m_states.remove(index.row(), 1);
        m_listing.rows.remove(m_listing.entries.takeAt(index.row()).name); // the others are replaced at once
        endRemoveRows();
    }
}

QList<QPersistentModelIndex> DataFilesModel::usedIndexes() const
{
    QList<QPersistentModelIndex> used;
    const QModelIndexList all = persistentIndexList();
    for (const QModelIndex &index : all)
        used.append(index);
    return used;
}

FileDetails DataFilesModel::want(const FolderEntry &entry) const
{
    const auto known = m_visit.known.constFind(entry.name);
    const bool isKnown = known != m_visit.known.constEnd();
    if ((!isKnown || known->generation != m_generation) && !m_visit.asked.contains(entry.name)) {
        m_visit.asked.insert(entry.name);
        m_visit.wanted.append(entry.name);
        if (!m_asking.isActive())
            m_asking.start(0);
    }
    return isKnown ? known->details : FileDetails();
}

// Each folder by itself: behind it may be a disk that does not answer, which does not keep the others.
void DataFilesModel::askDetails()
{
    QStringList names;
    QStringList later;
    for (const QString &name : qAsConst(m_visit.wanted)) {
        const int row = m_listing.rowOf(name);
        if (row >= 0 && m_listing.entries.at(row).isFolder)
            ask({name}, false);
        else if (m_visit.isReadingFiles)
            later.append(name);
        else
            names.append(name);
    }
    m_visit.wanted = later;
    while (names.size() + m_visit.wanted.size() > mostAsked)
        m_visit.asked.remove((names.isEmpty() ? m_visit.wanted : names).takeFirst());
    if (names.isEmpty())
        return;
    m_visit.isReadingFiles = true;
    ask(names, true);
}

void DataFilesModel::ask(const QStringList &names, bool areFiles)
{
    const auto read = [folder = m_question.folder, names, length = wantsLength()] {
        QHash<QString, FileDetails> found;
        for (const QString &name : names)
            found.insert(name, fileDetails(pathInFolder(folder, name), length));
        return found;
    };
    m_jobs->run(read, [this, areFiles, generation = m_generation](const QHash<QString, FileDetails> &found) {
        for (auto one = found.begin(); one != found.end(); ++one) {
            m_visit.known.insert(one.key(), {one.value(), generation});
            setState(one.key(), one.value());
            m_visit.asked.remove(one.key());
        }
        if (areFiles)
            m_visit.isReadingFiles = false;
        if (!m_visit.wanted.isEmpty())
            m_asking.start(0);
        emit detailed();
    });
}

// A new folder, which the dialog wants to select and rename at once.
void DataFilesModel::takeSourceRows(const QModelIndex &parent, int first, int last)
{
    if (files()->filePath(parent) != m_question.folder)
        return;
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = files()->index(row, 0, parent);
        const QString name = files()->fileName(index);
        const bool isHidden = !m_question.hidden && files()->fileInfo(index).isHidden();
        if (m_listing.rows.contains(name) || isHidden || !files()->isDir(index))
            continue;
        beginInsertRows({}, m_listing.entries.size(), m_listing.entries.size());
        m_listing.rows.insert(name, m_listing.entries.size());
        m_listing.entries.append({name, true});
        const FileDetails details = fileDetails(files()->filePath(index), wantsLength());
        m_states.append(details.isWritable ? Writable : Known);
        m_visit.known.insert(name, {details, m_generation});
        endInsertRows();
    }
}

void DataFilesModel::renameEntry(const QString &folder, const QString &before, const QString &now)
{
    const int row = m_listing.rowOf(before);
    if (row < 0 || folder != m_question.folder)
        return;
    m_listing.rows.remove(before);
    m_listing.rows.insert(now, row);
    m_listing.entries[row].name = now;
    m_visit.known.insert(now, m_visit.known.take(before));
    emit dataChanged(index(row, FolderQuestion::Name), index(row, FolderQuestion::Type));
}
