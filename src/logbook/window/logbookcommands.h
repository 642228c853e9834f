#pragma once

#include "files/disk/diskjobs.h"
#include "logbook/logbookrecording.h"

#include <QObject>
#include <QSet>
#include <QVector>

class Logbook;
class LogbookActions;
class LogbookEditor;
class LogbookReader;
class QWidget;

/// What the user does with the chosen recordings and with the chosen pack: serves the actions that change the
/// logbook or its files, and enables all that act on what is chosen.
class LogbookCommands : public QObject {
    Q_OBJECT

public:
    struct Parts {
        Logbook *logbook;
        LogbookEditor *editor;
        LogbookReader *reader;
        int binTime = 200; ///< ms, for which files are moved to the waste bin without a word; one at least is
    };

    /// `window` is the parent of dialogs. All outlive this.
    LogbookCommands(const Parts &parts, const LogbookActions *actions, QWidget *window);

    /// Recordings of which the user has chosen these, of the pack `pack` as LogbookFilter::pack has it.
    void choose(const QVector<qint64> &recordings, qint64 pack);

public slots:
    /// Enables what can be done now; the tips tell why the rest can't.
    void refresh();
    /// Opens the chosen recordings.
    void open();

signals:
    /// Files are to be opened in graph windows.
    void openWanted(const QStringList &files);
    /// Files are to be shown over each other, each under the label of the same place.
    void overlayWanted(const QStringList &files, const QStringList &labels);
    /// For the status bar.
    void message(const QString &text, int timeout);
    /// A pack has come that the user wants to see.
    void packWanted(qint64 pack);

private slots:
    void overlay();
    void showInFolder();
    void editNote();
    void deleteFiles();
    void removeRows();
    void assign();
    void assignOffered();
    void unassign();
    void newPack();
    void changePack();
    void mergePacks();
    void takeApart();
    void removePack();

private:
    void offerRecordings();
    void offerPacks();
    void offerUndo();
    QStringList presentFiles() const;
    bool anyGone() const;
    bool mayOpen(int count) const;
    QVector<qint64> offeredPacks() const;
    QVector<qint64> packsLike(const LogbookPack &like, qint64 without = LogbookPack::none) const;
    LogbookPack packLikeChosen() const;
    bool isDeletionWanted(const QStringList &files);
    void moveToBin(const QStringList &files);
    void takeMoved(const QStringList &moved, const QStringList &failed);
    void tellMoved();

    Parts m_parts;
    const LogbookActions *m_actions;
    QWidget *m_window;
    QVector<qint64> m_recordings;
    qint64 m_pack;
    QSet<QString> m_leaving; // files on their way to the waste bin
    QStringList m_failed; // of those that were, none of which waits any more
    int m_moved = 0;
    DiskJobs m_jobs; // last: what they deliver meets all of the above
};
