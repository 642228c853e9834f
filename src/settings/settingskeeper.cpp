#include "settings/settingskeeper.h"

#include "settings/replacefile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMap>
#include <QSettings>
#include <QSet>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

constexpr int lockTime = 5000; // ms, for another program that writes the same file

using Values = QMap<QString, QVariant>;

/// A file as it was left: what differs from that was changed by somebody else.
struct Stamp {
    explicit Stamp(const QFileInfo &info = QFileInfo())
        : size(info.size())
        , changed(info.lastModified())
    {
    }
    bool operator==(const Stamp &other) const { return size == other.size && changed == other.changed; }

    qint64 size;
    QDateTime changed;
};

struct Changes {
    Values all; // in force
    QSet<QString> unwritten; // keys
    Stamp written; // the file after the last success
};

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(SettingsKeeper)
};

// The plain form of a key, which may be written with a slash in front.
QString plain(const QString &key)
{
    return key.startsWith(QLatin1Char('/')) ? key.mid(1) : key;
}

// Why the file can't be written; empty where nothing speaks against it.
QString obstacle(const QString &fileName)
{
    if (!QFileInfo::exists(fileName))
        return QString();
    QFile file(fileName);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) ? QString() : file.errorString();
}

// A disk that fills up meanwhile takes the beginning, and the settings call that written.
bool isWhole(const QSettings &settings)
{
    QFile file(settings.fileName());
    file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lines = file.readAll().split('\n');
    const auto keys = std::count_if(
        lines.begin(), lines.end(), [](const QByteArray &line) { return line.contains('='); });
    return lines.constLast().isEmpty() && keys == settings.allKeys().size();
}

bool apply(const Values &values, QSettings *settings)
{
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (value->isValid())
            settings->setValue(value.key(), *value);
        else
            settings->remove(value.key());
    }
    settings->sync();
    return settings->status() != QSettings::AccessError && isWhole(*settings);
}

QString reasonOf(QLockFile::LockError error)
{
    if (error == QLockFile::LockFailedError)
        return Texts::tr("another program holds it");
    return error == QLockFile::PermissionError ? Texts::tr("its folder is protected against writing")
                                               : Texts::tr("the disk is full or reports an error");
}

// Makes the new file beside the old one, out of what now stands in that. Written in the old one's place by
// the settings themselves, everybody who reads one of them would wait for the disk meanwhile.
QString writeFile(const QString &fileName, const Values &values)
{
    const QFileInfo link(fileName);
    const QString target = link.isSymLink() ? link.symLinkTarget() : fileName;
    QDir().mkpath(QFileInfo(target).path());
    const QString reason = obstacle(target);
    if (!reason.isEmpty())
        return reason;
    QLockFile lock(fileName + QStringLiteral(".lock")); // the name under which QSettings looks for one
    if (!lock.tryLock(lockTime))
        return reasonOf(lock.error());
    const QString fresh = target + QStringLiteral(".new");
    QFile::remove(fresh);
    QFile old(target);
    if (old.exists() && !old.copy(fresh))
        return old.errorString();
    {
        QSettings settings(fresh, QSettings::IniFormat);
        if (!apply(values, &settings))
            return Texts::tr("the disk is full or reports an error");
    }
    return replaceFile(fresh, target);
}

} // namespace

/// What the keeper and its thread share, all of it guarded by the mutex.
struct SettingsKeeper::Work {
    void run(SettingsKeeper *keeper);
    void writeNext(std::unique_lock<std::mutex> &lock);
    void take(const Values &values, const QString &reason, const Stamp &stamp);

    std::mutex mutex;
    std::condition_variable changed; // there is something to write, or nothing any more
    QMap<QString, Changes> files;
    QSet<QString> waiting; // to be written or looked at
    QString writing; // the file that is being written
    QString unreadable;
    QString unwritable;
    bool started = false;
};

SettingsKeeper::SettingsKeeper()
    : m_work(std::make_shared<Work>())
{
}

// The thread uses parts of Qt that go when the process ends.
SettingsKeeper::~SettingsKeeper()
{
    waitForWritten(patience);
}

SettingsKeeper &SettingsKeeper::instance()
{
    static SettingsKeeper keeper;
    return keeper;
}

void SettingsKeeper::change(const QString &fileName, const QString &key, const QVariant &value)
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    Changes &changes = m_work->files[fileName];
    changes.all.insert(plain(key), value);
    changes.unwritten.insert(plain(key));
}

bool SettingsKeeper::find(const QString &fileName, const QString &key, QVariant *value) const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    const auto changes = m_work->files.constFind(fileName);
    if (changes == m_work->files.constEnd() || !changes->all.contains(plain(key)))
        return false;
    const bool held = changes->unwritten.contains(plain(key)) || m_work->writing == fileName;
    if (!held && !(changes->written == Stamp(fileName)))
        return false;
    *value = changes->all.value(plain(key));
    return true;
}

QStringList SettingsKeeper::keys(const QString &fileName) const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->files.value(fileName).all.keys();
}

void SettingsKeeper::write(const QString &fileName)
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    m_work->waiting.insert(fileName);
    if (!m_work->started)
        std::thread([work = m_work, this] { work->run(this); }).detach();
    m_work->started = true;
    m_work->changed.notify_all();
}

void SettingsKeeper::noteUnreadable(const QString &fileName)
{
    {
        const std::lock_guard<std::mutex> lock(m_work->mutex);
        if (m_work->unreadable == fileName)
            return;
        m_work->unreadable = fileName;
    }
    emit troubled();
}

QString SettingsKeeper::unreadable() const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->unreadable;
}

QString SettingsKeeper::unwritable() const
{
    const std::lock_guard<std::mutex> lock(m_work->mutex);
    return m_work->unwritable;
}

bool SettingsKeeper::waitForWritten(std::chrono::milliseconds time)
{
    Work &work = *instance().m_work;
    std::unique_lock<std::mutex> lock(work.mutex);
    return work.changed.wait_for(
        lock, time, [&work] { return work.waiting.isEmpty() && work.writing.isEmpty(); });
}

void SettingsKeeper::Work::run(SettingsKeeper *keeper)
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return !waiting.isEmpty(); });
        const QString before = unwritable;
        writeNext(lock);
        if (unwritable != before) {
            lock.unlock();
            emit keeper->troubled();
            lock.lock();
        }
        writing.clear();
        changed.notify_all();
    }
}

// The disk is waited for without the mutex.
void SettingsKeeper::Work::writeNext(std::unique_lock<std::mutex> &lock)
{
    writing = *waiting.begin();
    waiting.remove(writing);
    Changes &changes = files[writing];
    Values values;
    for (const QString &key : qAsConst(changes.unwritten))
        values.insert(key, changes.all.value(key));
    if (!(changes.written == Stamp(writing)))
        changes.all = values; // what else was changed here, somebody else may have changed since
    lock.unlock();
    const QString reason = values.isEmpty() ? obstacle(writing) : writeFile(writing, values);
    const Stamp stamp(writing);
    lock.lock();
    take(values, reason, stamp);
}

void SettingsKeeper::Work::take(const Values &values, const QString &reason, const Stamp &stamp)
{
    unwritable = reason.isEmpty() ? QString() : writing + QLatin1Char('\n') + reason;
    if (!reason.isEmpty() || values.isEmpty())
        return;
    Changes &changes = files[writing];
    changes.written = stamp;
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (changes.all.value(value.key()) == *value)
            changes.unwritten.remove(value.key());
    }
}
