#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

#include <memory>

class DiskSyncer;
class JournalFolder;
class JournalKeeper;
class MdiGraphChild;
class RecordingLog;

/// Which file keeps the records of which graph window: the journals of live recordings, the files opened, and
/// the journals whose windows were closed. Outlives readers and graph windows.
class WindowFiles : public QObject {
    Q_OBJECT

public:
    /// Tidies the folder of the journals as the settings ask.
    explicit WindowFiles(QObject *parent);

    const JournalKeeper *keeper() const { return m_keeper; }
    const JournalFolder &folder() const;
    /// Brings files to the disk, journals or others.
    DiskSyncer &syncer() const;

    /// A journal for a recording that starts now on `portName`; null while the settings have it switched off.
    std::unique_ptr<RecordingLog> begin(const QString &portName);
    /// `child` is the window of the recording that was begun last.
    void attach(const MdiGraphChild *child);
    /// `child` shows what stands in `fileName`.
    void attachFile(const MdiGraphChild *child, const QString &fileName);
    /// The file that the records of `child` are kept in; empty when there is none.
    QString fileOf(const MdiGraphChild *child) const;
    /// Names what is made of `child`: as the file that its records are kept in, without folder and ending, as
    /// its journal would be called, or as its port.
    QString nameFor(const MdiGraphChild *child) const;
    /// Everything that `child` has recorded is in its journal.
    bool keepsAll(const MdiGraphChild *child) const;
    /// `fileName` is the journal of a recording that runs: nothing else may write to it.
    bool isBeingRecorded(const QString &fileName) const;

    /// The window `child` closes; `unsaved`: its journal is worth reopening.
    void noteClosed(const MdiGraphChild *child, bool unsaved);
    bool hasClosed() const { return !m_closed.isEmpty(); }
    /// The journal of the unsaved window closed last whose file is still there, and no longer
    /// remembered; empty when there is none.
    QString takeClosed();

signals:
    /// What hasClosed() says may have changed.
    void closedChanged();
    /// Files that were there have another name.
    void renamed();

private slots:
    void forget(QObject *child);
    void rename(const QString &fileName, const QString &newName);

private:
    void watch(const MdiGraphChild *child, const QString &fileName);

    JournalKeeper *m_keeper; // child
    QString m_begun; // file of the recording begun last, until its window is there
    QString m_begunName; // of it, journal or not
    QHash<const QObject *, QString> m_names; // of live recordings, by window
    QHash<const QObject *, QString> m_files; // by window; keys are compared, never followed
    QStringList m_closed; // newest last
};
