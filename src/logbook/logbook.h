#pragma once

#include "logbook/logbookbatch.h"
#include "logbook/logbookfilter.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <memory>
#include <vector>

class LogbookKeeper;

/// What every pack has been through: the recordings that the program has made or opened, with their figures,
/// and the packs. All of it is in memory, so that no answer waits for a disk; what changes is written by a
/// thread of its own (LogbookKeeper).
///
/// Rows and packs are known by ids that are never used twice. Pointers to them hold until the next change.
class Logbook : public QObject {
    Q_OBJECT

public:
    explicit Logbook(QObject *parent = nullptr);
    /// Waits for what is not yet written, though not for ever.
    ~Logbook() override;

    /// The logbook of the file `logbook.sqlite` in `folder`, which is made when it is not there. Returns at
    /// once; opened() comes when it is read. To be called once.
    void open(const QString &folder);
    /// Where the user's logbook lies: the program's local data folder.
    static QString defaultFolder();
    bool isOpen() const { return m_isOpen; }
    /// It is shown and can't be kept: the medium takes nothing, or a newer version has written the file. The
    /// user's changes below are refused then: they do nothing.
    bool isReadOnly() const { return m_isReadOnly; }
    /// What the user should know of it, in words: that it can't be kept and why, or that what has changed is
    /// not yet written and why. Empty while all is well.
    QString trouble() const { return m_trouble; }
    /// All that has changed is written.
    bool isWritten() const;
    /// All that the user has changed is.
    bool isUsersWritten() const;

    int size() const { return int(m_rows.size()); }
    /// Null for an id that there is not (any more).
    const LogbookRecording *recording(qint64 id) const;
    /// The row of a file; null without one.
    const LogbookRecording *recordingOf(const QString &file) const;
    /// The ids of the rows that `filter` lets pass, newest start first, those without one last.
    QVector<qint64> recordings(const LogbookFilter &filter = LogbookFilter()) const;

    /// By name, in the user's order of letters.
    const QVector<LogbookPack> &packs() const { return m_packs; }
    const LogbookPack *pack(qint64 id) const; ///< null for LogbookPack::none and for one that there is not
    QString packName(qint64 id) const; ///< empty where pack() is null
    /// The pack that was last used at the port of row `id` with its chemistry and number of cells, by the
    /// start of the recordings: what is offered for it. LogbookPack::none where there is none, or the row has
    /// a pack.
    qint64 packToOffer(qint64 id) const;
    /// The same for each of `ids`, by id; those for which there is none are left out.
    QHash<qint64, qint64> packsToOffer(const QVector<qint64> &ids) const;
    /// How the process of `recording` ended, for the user.
    static QString endText(const LogbookRecording &recording);

    /// Folders that are read beside the program's own, as the user chose them.
    QStringList folders() const { return m_folders; }
    void setFolders(const QStringList &folders); ///< can't be undone by undo()

    // What the reader finds, which no undo touches.

    /// The row of a file with what tells whether it has changed; null without one.
    const LogbookEntry *entryOf(const QString &file) const;
    const LogbookEntry &entryAt(int index) const { return m_rows[size_t(index)].entry; } ///< 0..size() - 1
    /// Adds the row of `found`'s file, or brings it up to date: its id, pack and note stay.
    void take(const LogbookEntry &found);
    /// The file of a row holds another recording now. The row goes, with its pack and note, and a new one
    /// comes.
    void takeOther(const LogbookEntry &found);
    /// The file of a row has another name now; a row that has that name already goes.
    void rename(const QString &file, const QString &newFile);
    void setGone(const QString &file, bool gone);
    /// A live recording has come to nothing and left no file.
    void drop(const QString &file);
    /// Files that were looked at and hold no recording, by what the reader makes of name and stamp.
    void addRefused(const QVector<qint64> &keys);
    const QSet<qint64> &refused() const { return m_refused; }

    /// An id that no row and no pack has, here or in another program.
    static qint64 freshId();
    /// Does all of `batch` here and in the file. Entries of rows that are there are found by their ids or,
    /// where there is no such id, by their files, unless another recording has been saved over theirs.
    void apply(LogbookBatch batch);

signals:
    /// open() has come to its end: rows and packs are there, or the logbook is empty and trouble() says why.
    void opened();
    /// Rows `ids` were added or changed in any way, packs' names included.
    void recordingsChanged(const QVector<qint64> &ids);
    void recordingsRemoved(const QVector<qint64> &ids);
    /// Any pack was added, changed or removed; recordingsChanged() comes for its rows, too.
    void packsChanged();
    void foldersChanged();
    /// isReadOnly() or trouble() has changed.
    void troubleChanged();
    /// Something the user is told once, in a box or the status bar: a damaged file was set aside.
    void told(const QString &text);

private:
    struct Row {
        LogbookEntry entry;
        qint64 start = 0; // ms since 1970; what sorts the rows
        QString words; // what a filter's text is looked for in
    };
    struct Changes {
        QVector<qint64> changed;
        QVector<qint64> removed;
    };

    void takeContent(const LogbookContent &content);
    void takeChanged(const LogbookContent &content);
    Changes change(LogbookBatch *batch);
    void setTrouble(bool isReadOnly, const QString &trouble);
    void renameRows(const LogbookBatch &batch, Changes *changes);
    void changePacks(const LogbookBatch &batch, Changes *changes);
    void assignRows(LogbookBatch *batch, Changes *changes);
    void readRows(LogbookBatch *batch, Changes *changes);
    int find(const LogbookRecording &recording) const;
    void add(const LogbookEntry &entry);
    void remove(int index, Changes *changes);
    void describe(Row *row) const;
    void sortPacks();
    void tell(const LogbookBatch &batch, const Changes &changes);

    std::unique_ptr<LogbookKeeper> m_keeper;
    std::vector<Row> m_rows;
    QHash<qint64, int> m_byId; // places in m_rows
    QHash<QString, int> m_byFile;
    QSet<qint64> m_overtaken; // ids of rows whose files hold other recordings now
    QVector<LogbookPack> m_packs;
    QStringList m_folders;
    QSet<qint64> m_refused;
    QString m_trouble;
    bool m_isOpen = false;
    bool m_isReadOnly = false;
};
