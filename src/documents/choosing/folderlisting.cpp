#include "documents/choosing/folderlisting.h"

#include "files/recordinglength.h"
#include "files/filekind.h"
#include "files/recordlabel.h"

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

struct SortedEntry {
    FolderEntry entry;
    bool isLater; // than any folder
    qint64 number; // what the column holds, if it is one
    QCollatorSortKey type;
    QCollatorSortKey name;

    bool operator<(const SortedEntry &other) const
    {
        return std::tie(isLater, number, type, name)
            < std::tie(other.isLater, other.number, other.type, other.name);
    }
};

class Sorter {
public:
    explicit Sorter(const FolderQuestion &question)
        : m_question(question)
        , m_noType(m_collator.sortKey(QString()))
    {
        m_collator.setNumericMode(true);
        m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    }

    void add(const FolderEntry &entry)
    {
        const bool byType = m_question.column == FolderQuestion::Type;
        m_entries.push_back({entry, isLater(entry), number(entry),
            byType ? m_collator.sortKey(typeText(entry.name, entry.isFolder)) : m_noType,
            m_collator.sortKey(entry.name)});
    }

    FolderListing take()
    {
        std::sort(m_entries.begin(), m_entries.end());
        if (m_question.descending)
            std::reverse(m_entries.begin(), m_entries.end());
        FolderListing listing;
        const int count = int(m_entries.size());
        listing.entries.reserve(count);
        listing.rows.reserve(count);
        listing.names.reserve(count);
        for (const SortedEntry &one : m_entries) {
            listing.rows.insert(one.entry.name, listing.entries.size());
            listing.entries.append(one.entry);
            listing.names.append(one.entry.name);
            if (one.entry.name.size() > listing.longest.size())
                listing.longest = one.entry.name;
        }
        listing.names.sort(Qt::CaseInsensitive);
        return listing;
    }

private:
    qint64 number(const FolderEntry &entry) const
    {
        const QString path = pathInFolder(m_question.folder, entry.name);
        switch (m_question.column) {
        case FolderQuestion::Size:
            return entry.isFolder ? 0 : QFileInfo(path).size();
        case FolderQuestion::Modified:
            return QFileInfo(path).lastModified().toMSecsSinceEpoch();
        case FolderQuestion::Length:
            return recordingLength(path);
        default:
            return 0;
        }
    }

    // As QFileSystemModel has it: folders come first by name and size only.
    bool isLater(const FolderEntry &entry) const
    {
        const bool foldersFirst
            = m_question.column == FolderQuestion::Name || m_question.column == FolderQuestion::Size;
        return foldersFirst && !entry.isFolder;
    }

    const FolderQuestion &m_question;
    QCollator m_collator;
    QCollatorSortKey m_noType;
    std::vector<SortedEntry> m_entries;
};

bool endsWithOne(const QString &name, const QStringList &endings)
{
    return endings.isEmpty() || std::any_of(endings.begin(), endings.end(), [&name](const QString &ending) {
        return name.endsWith(ending, Qt::CaseInsensitive);
    });
}

QDir::Filters filtersOf(const FolderQuestion &question)
{
    // With these the iterator does not ask the system for each file.
    const QDir::Filters all = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    return question.hidden ? all | QDir::Hidden : all;
}

} // namespace

FolderListing listFolder(const FolderQuestion &question)
{
    Sorter sorter(question);
    if (question.folder.isEmpty()) {
        const QFileInfoList drives = QDir::drives();
        for (const QFileInfo &drive : drives)
            sorter.add({drive.absoluteFilePath(), true});
        return sorter.take();
    }
    QDirIterator files(question.folder, filtersOf(question));
    while (files.hasNext()) {
        files.next();
        const FolderEntry entry{files.fileName(), files.fileInfo().isDir()};
        if (entry.isFolder || endsWithOne(entry.name, question.endings))
            sorter.add(entry);
    }
    return sorter.take();
}

QString pathInFolder(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return name;
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

QString typeText(const QString &name, bool isFolder)
{
    const char context[] = "QFileDialog"; // is translated there
    if (isFolder)
        return QCoreApplication::translate(context, "Folder", "All other platforms");
    const QString ending = QFileInfo(name).suffix();
    return ending.isEmpty() ? QCoreApplication::translate(context, "File")
                            : QCoreApplication::translate(context, "%1 File").arg(ending);
}

FileDetails fileDetails(const QString &path, bool withLength)
{
    const QFileInfo info(path);
    FileDetails details;
    details.isWritable = info.permission(QFile::WriteUser);
    details.size = info.size();
    details.modified = info.lastModified();
    if (FileKind::isDataFile(path)) {
        QCache<QString, QString> cache;
        details.label = recordLabel(cache, path);
        if (withLength)
            details.seconds = recordingLength(path);
    }
    return details;
}
