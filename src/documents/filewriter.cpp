#include "documents/filewriter.h"

#include "documents/progressstrip.h"
#include "files/disksyncer.h"
#include "files/filepieces.h"
#include "files/filesync.h"

#include <QElapsedTimer>
#include <QFileDevice>
#include <QTimer>

#include <chrono>
#include <utility>

namespace {

constexpr int sliceTime = 20; // ms; events run between slices
constexpr int pollTime = 5; // ms between looks at the disk

} // namespace

struct FileWriter::Job {
    Job(const QString &fileName, std::unique_ptr<FilePieces> content, Told hearer)
        : file(fileName, WholeFile::Kind::Regular)
        , pieces(std::move(content))
        , told(std::move(hearer))
    {
    }

    WholeFile file;
    std::unique_ptr<FilePieces> pieces;
    Told told;
    bool opened = false;
    std::future<bool> synced; ///< valid once all is written
};

FileWriter::FileWriter(ProgressStrip *strip, DiskSyncer *syncer, QObject *parent)
    : QObject(parent)
    , m_strip(strip)
    , m_syncer(syncer)
    , m_slices(new QTimer(this))
{
    connect(m_slices, SIGNAL(timeout()), this, SLOT(writeOn()));
    connect(m_strip, SIGNAL(cancelled()), this, SLOT(cancel()));
}

FileWriter::~FileWriter() = default;

void FileWriter::add(const QString &fileName, std::unique_ptr<FilePieces> pieces, Told told)
{
    m_jobs.push_back(std::make_unique<Job>(fileName, std::move(pieces), std::move(told)));
    if (m_slices->isActive())
        return;
    m_good = true;
    m_strip->begin();
    m_slices->start(0);
}

void FileWriter::cancel()
{
    if (m_jobs.empty())
        return;
    const auto jobs = std::exchange(m_jobs, {});
    stopWhenIdle();
    for (const std::unique_ptr<Job> &job : jobs)
        job->told({false, true, QString()});
    if (m_jobs.empty())
        emit finished(m_good);
}

void FileWriter::writeOn()
{
    Job &job = *m_jobs.front();
    if (!job.opened) {
        job.opened = job.file.open();
        if (!job.opened)
            tell({false, false, job.file.reason()});
    } else if (!job.pieces->atEnd()) {
        if (!writeSlice(job))
            tell({false, false, job.file.reason()});
    } else if (!job.synced.valid()) {
        bringToDisk(job);
    } else if (job.synced.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        commit(job);
    }
}

bool FileWriter::writeSlice(Job &job)
{
    QElapsedTimer slice;
    slice.start();
    while (!job.pieces->atEnd() && !slice.hasExpired(sliceTime))
        if (!job.pieces->writeNext(job.file.device()))
            return false;
    m_strip->setProgress(job.pieces->progress());
    return true;
}

// The helper thread gets a descriptor of its own: after a cancel it may still be waiting for the disk.
void FileWriter::bringToDisk(Job &job)
{
    const int own = job.file.device().flush() ? duplicateDescriptor(job.file.device().handle()) : -1;
    if (own < 0) {
        tell({false, false, tr("The disk did not take all of it.")});
        return;
    }
    job.synced = m_syncer->finishNow(own);
    m_slices->setInterval(pollTime);
}

void FileWriter::commit(Job &job)
{
    if (!job.synced.get()) {
        tell({false, false, tr("The disk did not take all of it.")});
        return;
    }
    if (!job.file.commit()) {
        tell({false, false, job.file.reason()});
        return;
    }
    const int folder = job.file.folder().isEmpty() ? -1 : openFolder(job.file.folder());
    if (folder >= 0)
        m_syncer->finish(folder);
    tell({true, false, QString()});
}

void FileWriter::tell(const WriteOutcome &outcome)
{
    const std::unique_ptr<Job> job = std::move(m_jobs.front());
    m_jobs.pop_front();
    m_good &= outcome.written;
    m_slices->setInterval(0);
    stopWhenIdle();
    job->told(outcome);
    if (m_jobs.empty())
        emit finished(m_good);
}

void FileWriter::stopWhenIdle()
{
    if (!m_jobs.empty())
        return;
    m_slices->stop();
    m_strip->end();
}
