#pragma once

#include "files/disk/diskjobs.h"
#include "logbook/logbookbatch.h"

#include <QHash>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>

class DataFileLoader;
class Logbook;
class LogbookReckoning;
class QTimer;
class SeriesStore;
struct FolderNews;
struct LookQuestion;
struct FoundFile;

/// Brings a logbook up to date with the files: reads the folders once it is open, looks every few seconds
/// whether something has come, gone or changed there, and reads single files when told. Folders are looked
/// through by threads of their own, files read in slices of the event loop, the newest first. What is read is
/// kept at once: after cancel() or a kill it goes on where it was. Folders within a folder are not read.
class LogbookReader : public QObject {
    Q_OBJECT

public:
    /// `logbook` outlives this and is not open yet. `ownFolder`: that of the journals of live recordings,
    /// which is always read.
    LogbookReader(Logbook *logbook, const QString &ownFolder, QObject *parent = nullptr);
    ~LogbookReader() override;

    /// Folders are looked through, or files read.
    bool isReading() const;
    int filesDone() const { return m_done; } ///< of those found since it was last at rest
    int filesToDo() const { return m_toDo; } ///< the same, done or not

    /// Looks at a file that was opened. `series` gives what stood in it when it had `stamp`, null once that
    /// has gone or changed: until then the file is not read once more.
    using Series = std::function<const SeriesStore *()>;
    void lookAtOpened(const QString &file, const FileStamp &stamp, const Series &series);

public slots:
    /// Looks through all folders now, also after cancel().
    void readAgain();
    /// Gives up the files that wait. They are found again by readAgain() and at the next start.
    void cancel();
    /// Looks at one file, wherever it is: it was opened, saved, or removed.
    void look(const QString &file);
    void look(const QStringList &files); ///< at many at once, which costs less
    /// The same; what stands in `file` was copied from `source`, and began when that did. Of the recording
    /// that was in `file` before, if it is another one, nothing stays.
    void lookAtCopy(const QString &file, const QString &source);

    /// A live recording has begun with `record`; `file` is its journal.
    void beginLive(const QString &file, const QString &port, const Varnel3Data &record);
    void endLive(const QString &file); ///< its journal is complete and is read now
    void dropLive(const QString &file); ///< it was not worth a file
    void renameLive(const QString &file, const QString &newFile);

signals:
    /// filesDone() or filesToDo() has changed.
    void progressed(int done, int toDo);
    /// At rest, after readAgain(), the first reading or cancel().
    void finished();

private slots:
    void lookAround();
    void readOn();

private:
    struct Folder {
        qint64 modified = -1; // as it was looked through last
        bool isUnsettled = false;
        bool isBusy = false; // a thread is at it
        bool isWanted = false; // once more after that
    };
    struct Opened {
        FileStamp stamp;
        Series series; // empty: of nothing
    };
    struct Current;

    QStringList folders() const;
    LookQuestion question(const QString &folder) const;
    void lookThroughFolder(const QString &folder);
    void takeTime(const QString &folder, qint64 modified);
    void takeNews(const FolderNews &news);
    void takeFound(const QVector<FoundFile> &found);
    void lookAtFiles(const QStringList &files, const Opened &opened);
    void takeWaiting();
    std::unique_ptr<Current> nextWaiting();
    bool workOn();
    void takeResult();
    void takeRead(const Current &read);
    LogbookEntry entryOf(const Current &read, const LogbookRecording *before) const;
    void rest();

    Logbook *m_logbook;
    QString m_ownFolder;
    QTimer *m_round; // child
    QTimer *m_slices; // child; runs while there are files to read
    QHash<QString, Folder> m_folders;
    QVector<FoundFile> m_waiting; // oldest first
    QHash<QString, Opened> m_opened; // of those in m_waiting
    QHash<QString, QString> m_sources; // of files that were overwritten and are to be read
    std::unique_ptr<Current> m_current; // the file that is being read
    std::deque<std::unique_ptr<Current>> m_next; // their disks are asked meanwhile
    bool m_isCancelled = false; // what folders hold is not read for now
    int m_looks = 0; // under way
    int m_done = 0;
    int m_toDo = 0;
    DiskJobs m_jobs; // last: what they deliver meets all of the above
};
