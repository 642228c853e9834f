#include "app/filewriter.h"

#include "app/progressstrip.h"
#include "files/disksyncer.h"
#include "files/filepieces.h"
#include "files/filesync.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileDevice>
#include <QTimer>

#include <chrono>

namespace {

constexpr int sliceTime = 20; // ms; events run between slices
constexpr int pollTime = 5; // ms between looks at the disk

} // namespace

FileWriter::FileWriter(ProgressStrip *strip, DiskSyncer *syncer, QObject *parent)
    : QObject(parent)
    , m_strip(strip)
    , m_syncer(syncer)
{
    connect(m_strip, SIGNAL(cancelled()), this, SLOT(cancel()));
}

WriteOutcome FileWriter::write(const QString &fileName, FilePieces &pieces)
{
    WholeFile file(fileName);
    if (!file.open())
        return {false, false, file.reason()};
    const int cancelsBefore = m_cancels;
    m_strip->begin();
    WriteOutcome outcome = writeOn(file, pieces);
    m_strip->end();
    if (!outcome.written && m_cancels != cancelsBefore)
        outcome = {false, true, QString()};
    return outcome;
}

WriteOutcome FileWriter::writeOn(WholeFile &file, FilePieces &pieces)
{
    if (!writePieces(file.device(), pieces))
        return {false, false, file.reason()};
    if (!file.device().flush() || !bringToDisk(file.device()))
        return {false, false, tr("The disk did not take all of it.")};
    if (!file.commit())
        return {false, false, file.reason()};
    const int folder = file.folder().isEmpty() ? -1 : openFolder(file.folder());
    if (folder >= 0)
        m_syncer->finish(folder);
    return {true, false, QString()};
}

bool FileWriter::writePieces(QFileDevice &device, FilePieces &pieces)
{
    const int cancelsBefore = m_cancels;
    QElapsedTimer slice;
    slice.start();
    while (!pieces.atEnd()) {
        if (!pieces.writeNext(device))
            return false;
        if (!slice.hasExpired(sliceTime))
            continue;
        m_strip->setProgress(pieces.progress());
        QCoreApplication::processEvents();
        if (m_cancels != cancelsBefore)
            return false;
        slice.start();
    }
    return true;
}

// The helper thread gets a descriptor of its own: after a cancel it may still be waiting for the disk.
bool FileWriter::bringToDisk(const QFileDevice &device)
{
    const int own = duplicateDescriptor(device.handle());
    if (own < 0)
        return false;
    const int cancelsBefore = m_cancels;
    std::future<bool> synced = m_syncer->finishNow(own);
    QTimer wake;
    wake.start(pollTime);
    while (synced.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (m_cancels != cancelsBefore)
            return false;
    }
    return synced.get();
}
