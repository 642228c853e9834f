#include "files/wholefile.h"

#include "files/filesync.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr int mostLinks = 40; // then it is a circle

QString finalTarget(const QString &fileName)
{
    QFileInfo target(fileName);
    for (int links = 0; target.isSymLink() && links < mostLinks; ++links)
        target.setFile(target.symLinkTarget());
    return target.filePath();
}

WriteOutcome writeInPlace(const QString &fileName, const FileContent &content)
{
    QFile file;
    const int descriptor = openSpecialFile(fileName);
    if (descriptor < 0)
        return {false, qt_error_string()};
    if (!file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        return {false, file.errorString()};
    const bool written = content(file) && file.flush() && syncToDisk(descriptor);
    return {written, written ? QString() : file.errorString()};
}

WriteOutcome replaceFile(const QString &fileName, const FileContent &content)
{
    QSaveFile file(fileName);
    // Unbuffered, so that a full disk answers the write that meets it.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !content(file))
        return {false, file.errorString()};
    if (!file.flush() || !syncToDisk(file.handle()))
        return {false, qt_error_string()};
    if (!file.commit())
        return {false, file.errorString()};
    syncFolder(QFileInfo(fileName).path());
    return {true, QString()};
}

} // namespace

WriteOutcome writeWholeFile(const QString &fileName, const FileContent &content)
{
    const QString target = finalTarget(fileName);
    const QFileInfo info(target);
    if (info.isSymLink())
        return {false, QCoreApplication::translate("WriteOutcome", "too many links")};
    const bool special = info.exists() && !info.isFile();
    return special ? writeInPlace(target, content) : replaceFile(target, content);
}
