#include "files/disk/diskjobs.h"

#include <QDebug>
#include <QFileInfo>
#include <QMetaObject>
#include <QObject>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace {

void detach(const std::function<void()> &work)
{
    try {
        std::thread([work] {
            try {
                work();
            } catch (const std::exception &error) { // no memory: as if the disk had not answered
                qWarning() << "A disk was not asked:" << error.what();
            }
        }).detach();
    } catch (const std::exception &error) {
        qWarning() << "A disk was not asked:" << error.what();
    }
}

struct Answers {
    explicit Answers(const QStringList &paths)
        : missing(paths)
    {
    }

    std::mutex mutex;
    std::condition_variable changed;
    QStringList missing; // guarded by the mutex
};

} // namespace

struct DiskJobs::Shared {
    std::mutex mutex;
    QObject *receiver; // guarded by the mutex; null once nobody wants results
};

DiskJobs::DiskJobs(QObject *receiver)
    : m_shared(std::make_shared<Shared>())
{
    m_shared->receiver = receiver;
}

DiskJobs::~DiskJobs()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->receiver = nullptr;
}

void DiskJobs::start(const std::function<std::function<void()>()> &work)
{
    detach([shared = m_shared, work] {
        const std::function<void()> result = work();
        const auto deliver = [shared, result] {
            if (shared->receiver) // which only the thread that this runs in takes away
                result();
        };
        const std::lock_guard<std::mutex> lock(shared->mutex);
        if (shared->receiver)
            QMetaObject::invokeMethod(shared->receiver, deliver, Qt::QueuedConnection);
    });
}

QStringList DiskJobs::silent(const QStringList &paths, int milliseconds)
{
    const auto answers = std::make_shared<Answers>(paths);
    for (const QString &path : paths) {
        detach([answers, path] {
            QFileInfo(path).isDir();
            const std::lock_guard<std::mutex> lock(answers->mutex);
            answers->missing.removeAll(path);
            answers->changed.notify_all();
        });
    }
    std::unique_lock<std::mutex> lock(answers->mutex);
    answers->changed.wait_for(
        lock, std::chrono::milliseconds(milliseconds), [&answers] { return answers->missing.isEmpty(); });
    return answers->missing;
}
