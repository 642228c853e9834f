#include "app/userguide.h"

#include "widgets/warningbox.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace {

// From the program's folder: as installed on Windows, in a folder of its own below a prefix, and in the tree
// that it was built from.
const char *const pages[] = {"doc/user-guide.html", "../../share/doc/varnelgraph/user-guide.html",
    "../../share/doc/varnelgraph/user-guide.md", "../../../docs/user-guide.md"};

} // namespace

QString UserGuide::pageFor(const QString &programFolder)
{
    const QDir folder(programFolder);
    for (const char *page : pages) {
        const QString path = QDir::cleanPath(folder.filePath(QLatin1String(page)));
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

void UserGuide::open(QWidget *parent)
{
    const QString page = pageFor(QCoreApplication::applicationDirPath());
    if (!page.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        return;
    const QString text = page.isEmpty()
        ? QCoreApplication::translate("UserGuide", "The user guide is not installed.")
        : QCoreApplication::translate("UserGuide", "No program opens the user guide. It lies in:")
            + QLatin1Char('\n') + QDir::toNativeSeparators(page);
    showWarningBox(parent, "noUserGuide", QCoreApplication::translate("UserGuide", "User guide"), text);
}
