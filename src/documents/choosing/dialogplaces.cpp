#include "documents/choosing/dialogplaces.h"

#include "files/disk/diskjobs.h"

#include <QDir>
#include <QSettings>
#include <QUrl>

namespace {

constexpr int patience = 40; // ms
const char lastKey[] = "FileDialog/lastVisited"; // in the settings of all Qt programs
const char bookmarksKey[] = "FileDialog/shortcuts";

QString pathOf(const QString &url)
{
    return QUrl(url).toLocalFile();
}

} // namespace

DialogPlaces::DialogPlaces(const QString &path)
    : m_path(path)
    , m_home(QDir::homePath())
{
    QSettings settings(QSettings::UserScope, QStringLiteral("QtProject"));
    const QString last = settings.value(QLatin1String(lastKey)).toString();
    QStringList bookmarks = settings.value(QLatin1String(bookmarksKey)).toStringList();
    QStringList asked{path, pathOf(last)};
    for (const QString &url : qAsConst(bookmarks))
        asked.append(pathOf(url));
    asked.removeAll(QString());
    const QStringList silent = DiskJobs::silent(asked, patience);
    if (silent.isEmpty())
        return;
    m_isSilent = silent.contains(path);
    if (silent.contains(pathOf(last)))
        settings.setValue(QLatin1String(lastKey), QUrl::fromLocalFile(m_home).toString());
    for (const QString &url : qAsConst(bookmarks)) {
        if (silent.contains(pathOf(url)))
            m_keptBookmarks.append(url);
    }
    for (const QString &url : qAsConst(m_keptBookmarks))
        bookmarks.removeAll(url);
    settings.setValue(QLatin1String(bookmarksKey), bookmarks);
}

DialogPlaces::~DialogPlaces()
{
    if (m_keptBookmarks.isEmpty())
        return;
    QSettings settings(QSettings::UserScope, QStringLiteral("QtProject"));
    const QStringList now = settings.value(QLatin1String(bookmarksKey)).toStringList();
    settings.setValue(QLatin1String(bookmarksKey), now + m_keptBookmarks);
}
