#include "documents/filewriter.h"

#include "documents/progressstrip.h"
#include "files/filepieces.h"

#include <QTimer>

#include <utility>

namespace {

constexpr int sliceTime = 20; // ms; events run between slices
constexpr int pollTime = 5; // ms between looks at the disk

} // namespace

struct FileWriter::Job {
    Job(const QString &fileName, std::unique_ptr<FilePieces> content, DiskSyncer &syncer, Told hearer)
        : pieces(std::move(content))
        , file(fileName, WholeFile::Kind::Regular, *pieces, syncer)
        , told(std::move(hearer))
    {
    }

    std::unique_ptr<FilePieces> pieces;
    WholeFile file;
    Told told;
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
    m_jobs.push_back(std::make_unique<Job>(fileName, std::move(pieces), *m_syncer, std::move(told)));
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
        job->told(WriteOutcome::cancellation());
    if (m_jobs.empty())
        emit finished(m_good);
}

void FileWriter::writeOn()
{
    Job &job = *m_jobs.front();
    if (!job.file.writeSome(sliceTime)) {
        tell(job.file.outcome());
        return;
    }
    m_strip->setProgress(job.pieces->progress());
    m_slices->setInterval(job.file.isWaiting() ? pollTime : 0);
}

void FileWriter::tell(const WriteOutcome &outcome)
{
    const std::unique_ptr<Job> job = std::move(m_jobs.front());
    m_jobs.pop_front();
    m_good &= outcome.written;
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
