#include "files/wholefile.h"

#include "files/disk/disksyncer.h"
#include "files/filepieces.h"
#include "files/disk/filesync.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <chrono>
#include <limits>

namespace {

constexpr int mostLinks = 40; // then it is a circle

// Unbuffered, so that a full disk answers the write that meets it.
constexpr QIODevice::OpenMode openMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

// A pipe that /dev/stdout leads to has no name of its own: what is no file is opened by the name given.
QString finalTarget(const QString &fileName)
{
    QFileInfo target(fileName);
    if (target.exists() && !target.isFile())
        return fileName;
    for (int links = 0; target.isSymLink() && links < mostLinks; ++links)
        target.setFile(target.symLinkTarget());
    return target.filePath();
}

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(WriteOutcome)
};

} // namespace

WholeFile::WholeFile(const QString &fileName, Kind allowed, FilePieces &pieces, DiskSyncer &syncer)
    : m_target(finalTarget(fileName))
    , m_allowed(allowed)
    , m_pieces(pieces)
    , m_syncer(syncer)
{
}

WholeFile::~WholeFile() = default;

bool WholeFile::writeSome(int maxMilliseconds)
{
    if (m_outcome)
        return false;
    if (!m_device)
        open();
    else if (!m_pieces.atEnd())
        writePieces(maxMilliseconds);
    else if (!m_synced.valid())
        bringToDisk();
    else if (!isWaiting())
        commit();
    return !m_outcome;
}

bool WholeFile::isWaiting() const
{
    return !m_outcome && m_synced.valid()
        && m_synced.wait_for(std::chrono::seconds::zero()) != std::future_status::ready;
}

WriteOutcome WholeFile::writeAll()
{
    while (!m_outcome) {
        if (m_synced.valid())
            commit(); // waits
        else
            writeSome(std::numeric_limits<int>::max());
    }
    return outcome();
}

void WholeFile::open()
{
    const QFileInfo info(m_target);
    if (info.exists() && !info.isFile())
        return openSpecial();
    if (info.isSymLink())
        return fail(Texts::tr("too many links"));
    auto replacement = std::make_unique<QSaveFile>(m_target);
    m_replacement = replacement.get();
    m_device = std::move(replacement);
    if (!m_device->open(openMode))
        fail(m_device->errorString());
}

void WholeFile::openSpecial()
{
    if (m_allowed == Kind::Regular)
        return fail(Texts::tr("not a regular file"));
    const int descriptor = openSpecialFile(m_target);
    if (descriptor == noDescriptor)
        return fail(qt_error_string());
    auto special = std::make_unique<QFile>();
    special->open(descriptor, openMode, QFile::AutoCloseHandle); // which can't fail
    m_device = std::move(special);
}

void WholeFile::writePieces(int maxMilliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_pieces.atEnd() && !timer.hasExpired(maxMilliseconds)) {
        if (!m_pieces.writeNext(*m_device))
            return fail(m_device->errorString());
    }
}

// The helper thread gets a descriptor of its own: it may be waiting for the disk when this is given up.
void WholeFile::bringToDisk()
{
    const int own = duplicateDescriptor(m_device->handle());
    if (own == noDescriptor)
        return fail(qt_error_string());
    m_synced = m_syncer.finishNow(own);
}

void WholeFile::commit()
{
    if (!m_synced.get())
        return fail(Texts::tr("The disk did not take all of it."));
    if (m_replacement && !m_replacement->commit())
        return fail(m_device->errorString());
    const int folder = m_replacement ? openFolder(QFileInfo(m_target).path()) : noDescriptor;
    if (folder != noDescriptor)
        m_syncer.finish(folder); // which holds the new name
    m_outcome = WriteOutcome::success();
}

WriteOutcome writeWholeFile(const QString &fileName, FilePieces &pieces)
{
    DiskSyncer syncer;
    return WholeFile(fileName, WholeFile::Kind::Any, pieces, syncer).writeAll();
}
