#include "files/disk/nativename.h"

#include <QDir>
#include <QFileInfo>

// Without the mark in front a path ends at 260 letters, which the profile of a user with a long name comes
// near.
std::wstring nativeName(const QString &fileName)
{
    const QString path = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(fileName).absoluteFilePath()));
    const QString mark = QStringLiteral("\\\\?\\");
    if (path.startsWith(mark) || path.startsWith(QLatin1String("\\\\.\\")))
        return path.toStdWString();
    const bool onServer = path.startsWith(QLatin1String("\\\\"));
    return (mark + (onServer ? QStringLiteral("UNC\\") + path.mid(2) : path)).toStdWString();
}
