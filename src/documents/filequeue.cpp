#include "documents/filequeue.h"

#include "documents/loadoutcome.h"
#include "documents/progressstrip.h"
#include "files/datafileloader.h"
#include "series/seriesstore.h"
#include "settings/messagetime.h"

#include <QDir>
#include <QDeadlineTimer>
#include <QTimer>

#include <new>
#include <utility>

namespace {

constexpr int sliceTime = 20; // ms; the event loop runs between slices
constexpr int waitTime = 20; // ms between two looks at a disk that does not answer
constexpr int recordsBetweenLooks = 2048; // at the clock
constexpr double readingPart = 0.7; // of the time that a file takes

} // namespace

FileQueue::FileQueue(ProgressStrip *strip, QObject *parent)
    : QObject(parent)
    , m_strip(strip)
    , m_slices(new QTimer(this))
{
    connect(m_slices, SIGNAL(timeout()), this, SLOT(readOn()));
    connect(m_strip, SIGNAL(cancelled()), this, SLOT(cancel()));
}

FileQueue::~FileQueue() = default;

void FileQueue::add(const QStringList &files)
{
    if (files.isEmpty())
        return;
    m_waiting.append(files);
    m_total += files.size();
    if (m_slices->isActive())
        return;
    m_strip->begin();
    m_slices->start(0);
}

void FileQueue::cancel()
{
    if (!m_slices->isActive())
        return;
    m_loader.reset();
    m_store.reset();
    m_waiting.clear();
    emit message(tr("Opening was cancelled."), usualMessageTime);
    finish();
}

void FileQueue::readOn()
{
    if (!m_loader) {
        if (m_waiting.isEmpty()) {
            finish();
            return;
        }
        m_loader = std::make_unique<DataFileLoader>(m_waiting.dequeue());
    }
    if (!workOn())
        takeResult();
    m_slices->setInterval(m_loader && m_loader->isWaiting() ? waitTime : 0);
}

/// True while the file is not ready.
bool FileQueue::workOn()
{
    try {
        return m_store ? deriveSome() : readSome();
    } catch (const std::bad_alloc &) {
        m_store.reset();
        m_loader->giveUpForMemory();
        return false;
    }
}

/// True while the file is not ready.
bool FileQueue::readSome()
{
    const bool more = m_loader->readSome(sliceTime);
    m_strip->setProgress(m_loader->progress() * readingPart);
    if (more || m_loader->status() != DataFileLoader::Status::Loaded)
        return more;
    m_store = std::make_unique<SeriesStore>();
    m_store->beginLoad(m_loader->takeRecords());
    return deriveSome();
}

/// True while the file is not ready.
bool FileQueue::deriveSome()
{
    const QDeadlineTimer slice(sliceTime);
    bool more = true;
    while (more && !slice.hasExpired())
        more = m_store->loadSome(recordsBetweenLooks);
    m_strip->setProgress(readingPart + m_store->loadProgress() * (1.0 - readingPart));
    return more;
}

void FileQueue::takeResult()
{
    const std::unique_ptr<DataFileLoader> loader = std::move(m_loader);
    const std::unique_ptr<SeriesStore> store = std::move(m_store);
    const QString name = loader->fileName();
    if (!store)
        m_failures.append(QDir::toNativeSeparators(name) + QStringLiteral(": ") + loader->reason());
    // Told first: a window that takes the records may have more to say.
    const LoadOutcome outcome = loadOutcome(*loader);
    emit message(outcome.text, outcome.timeout);
    if (store)
        emit loaded(name, store.get(), loader->stamp());
}

void FileQueue::finish()
{
    m_slices->stop();
    m_strip->end();
    const QStringList failures = std::exchange(m_failures, {});
    emit finished(failures, std::exchange(m_total, 0));
}
