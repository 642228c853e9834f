#include "files/wholefile.h"

#include "files/filepieces.h"
#include "files/filesync.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr int mostLinks = 40; // then it is a circle

// Unbuffered, so that a full disk answers the write that meets it.
constexpr QIODevice::OpenMode openMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

QString finalTarget(const QString &fileName)
{
    QFileInfo target(fileName);
    for (int links = 0; target.isSymLink() && links < mostLinks; ++links)
        target.setFile(target.symLinkTarget());
    return target.filePath();
}

} // namespace

WholeFile::WholeFile(const QString &fileName, Kind allowed)
    : m_target(finalTarget(fileName))
    , m_allowed(allowed)
{
}

WholeFile::~WholeFile() = default;

bool WholeFile::open()
{
    const QFileInfo info(m_target);
    if (info.isSymLink()) {
        m_reason = QCoreApplication::translate("WriteOutcome", "too many links");
        return false;
    }
    if (!info.exists() || info.isFile()) {
        auto replacement = std::make_unique<QSaveFile>(m_target);
        m_replacement = replacement.get();
        m_device = std::move(replacement);
        return m_device->open(openMode);
    }
    if (m_allowed == Kind::Regular) {
        m_reason = QCoreApplication::translate("WriteOutcome", "not a regular file");
        return false;
    }
    auto special = std::make_unique<QFile>();
    const int descriptor = openSpecialFile(m_target);
    if (descriptor < 0) {
        m_reason = qt_error_string();
        return false;
    }
    const bool opened = special->open(descriptor, openMode, QFile::AutoCloseHandle);
    m_device = std::move(special);
    return opened;
}

bool WholeFile::commit()
{
    return m_replacement ? m_replacement->commit() : m_device->flush();
}

QString WholeFile::reason() const
{
    return m_reason.isEmpty() && m_device ? m_device->errorString() : m_reason;
}

QString WholeFile::folder() const
{
    return m_replacement ? QFileInfo(m_target).path() : QString();
}

WriteOutcome writeWholeFile(const QString &fileName, FilePieces &pieces)
{
    WholeFile file(fileName, WholeFile::Kind::Any);
    if (!file.open() || !pieces.writeAll(file.device()))
        return {false, false, file.reason()};
    if (!file.device().flush() || !syncToDisk(file.device().handle()))
        return {false, false, qt_error_string()};
    if (!file.commit())
        return {false, false, file.reason()};
    if (!file.folder().isEmpty())
        syncFolder(file.folder());
    return {true, false, QString()};
}
