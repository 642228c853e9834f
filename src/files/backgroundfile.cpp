#include "files/backgroundfile.h"

#include "files/disk/lockedfile.h"
#include "files/linesource.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QQueue>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <new>
#include <thread>

namespace {

constexpr int chunkSize = LineSource::usualChunk;
constexpr int chunksAhead = 4;

// What others write meanwhile gives a mixture of old and new; only a journal grows at its end and nowhere
// else.
bool hasChanged(const QFile &file, const QDateTime &before)
{
    return file.size() < file.pos()
        || (file.fileTime(QFileDevice::FileModificationTime) != before && !isBeingWritten(file.fileName()));
}

} // namespace

struct BackgroundFile::Shared {
    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    std::atomic<bool> ready = false; // there are chunks, or there will be no more
    std::atomic<qint64> size{};
    FileStamp stamp; // these are guarded by the mutex
    QQueue<QByteArray> chunks;
    QString error;
    bool ended = false;
    bool abandoned = false;

    void setStamp(const FileStamp &opened)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        stamp = opened;
    }
    void end(const QString &text)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        error = text;
        ended = true;
        ready = true;
        changed.notify_all();
    }
    /// False when nobody wants more.
    bool add(const QByteArray &chunk)
    {
        std::unique_lock<std::mutex> lock(mutex);
        chunks.enqueue(chunk);
        ready = true;
        changed.notify_all();
        changed.wait(lock, [this] { return abandoned || chunks.size() < chunksAhead; });
        return !abandoned;
    }
};

BackgroundFile::BackgroundFile(const QString &fileName)
    : m_shared(std::make_shared<Shared>())
{
    open(ReadOnly | Unbuffered);
    std::thread([shared = m_shared, fileName] { run(shared, fileName); }).detach();
}

BackgroundFile::~BackgroundFile()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->abandoned = true;
    m_shared->changed.notify_all();
}

// A pipe would wait for its writer, a device might never end.
void BackgroundFile::run(const std::shared_ptr<Shared> &shared, const QString &fileName)
{
    try {
        if (!QFileInfo(fileName).isFile())
            return shared->end(QFileInfo::exists(fileName) ? tr("not a regular file") : tr("no such file"));
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return shared->end(file.errorString());
        shared->size = file.size();
        const QDateTime before = file.fileTime(QFileDevice::FileModificationTime);
        shared->setStamp({shared->size, before.toMSecsSinceEpoch()});
        for (;;) {
            QByteArray chunk(chunkSize, Qt::Uninitialized);
            const qint64 got = file.read(chunk.data(), chunk.size());
            if (got < 0)
                return shared->end(file.errorString());
            if (got == 0)
                return shared->end(
                    hasChanged(file, before) ? tr("it was changed while it was read") : QString());
            chunk.truncate(int(got));
            if (!shared->add(chunk))
                return;
        }
    } catch (const std::bad_alloc &) {
        shared->end(tr("not enough memory"));
    }
}

bool BackgroundFile::isReady() const
{
    return m_taken < m_chunk.size() || m_shared->ready;
}

void BackgroundFile::waitReady(int milliseconds) const
{
    std::unique_lock<std::mutex> lock(m_shared->mutex);
    m_shared->changed.wait_for(
        lock, std::chrono::milliseconds(milliseconds), [this] { return m_shared->ready.load(); });
}

qint64 BackgroundFile::size() const
{
    return m_shared->size;
}

FileStamp BackgroundFile::stamp() const
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_shared->stamp;
}

qint64 BackgroundFile::readData(char *data, qint64 maxSize)
{
    if (m_taken == m_chunk.size()) {
        std::unique_lock<std::mutex> lock(m_shared->mutex);
        m_shared->changed.wait(lock, [this] { return m_shared->ready.load(); });
        if (m_shared->chunks.isEmpty()) {
            setErrorString(m_shared->error);
            return m_shared->error.isEmpty() ? 0 : -1;
        }
        m_chunk = m_shared->chunks.dequeue();
        m_taken = 0;
        m_shared->ready = m_shared->ended || !m_shared->chunks.isEmpty();
        m_shared->changed.notify_all();
    }
    const int count = int(std::min<qint64>(maxSize, m_chunk.size() - m_taken));
    std::memcpy(data, m_chunk.constData() + m_taken, size_t(count));
    m_taken += count;
    return count;
}
