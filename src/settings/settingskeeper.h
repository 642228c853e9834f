#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <memory>

/// What this run of the program has changed in settings files, and the thread that writes it to them: nobody
/// else waits for a disk. What can't be written stays in force until the program ends, and is tried again
/// with the next change. There is one, for any number of files; all functions may be called from any thread.
class SettingsKeeper : public QObject {
    Q_OBJECT

public:
    /// What the end of the program waits for a disk.
    static constexpr std::chrono::seconds patience{3};

    static SettingsKeeper &instance();
    ~SettingsKeeper() override;

    /// Keeps `value` under `key` of `fileName`, from now on; an invalid one removes the key. It is written
    /// after the next write().
    void change(const QString &fileName, const QString &key, const QVariant &value);
    /// False when `key` was not changed, or the file was changed by somebody else since it was written.
    bool find(const QString &fileName, const QString &key, QVariant *value) const;
    /// The keys that were changed.
    QStringList keys(const QString &fileName) const;
    /// Has what was changed written to the file. Without a change it is only looked whether it could be.
    void write(const QString &fileName);
    /// `fileName` is there and can't be read, or not all of it.
    void noteUnreadable(const QString &fileName);
    /// The file that was last found so; empty without one.
    QString unreadable() const;
    /// The file whose last writing has failed, and a line with the reason; empty after one that has not.
    QString unwritable() const;

    /// Waits until everything is with its file or was given up. False when that takes longer than `time`.
    static bool waitForWritten(std::chrono::milliseconds time);

signals:
    /// What unreadable() or unwritable() say has changed. Emitted by any thread.
    void troubled();

private:
    SettingsKeeper();

    struct Work;
    std::shared_ptr<Work> m_work; // with the thread, which may outlive this
};
