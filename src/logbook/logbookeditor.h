#pragma once

#include "logbook/logbookbatch.h"

#include <QObject>

class Logbook;

/// What the user changes in a logbook; each change can be undone. Does nothing while the logbook is
/// read-only; an id that there is not is passed over.
class LogbookEditor : public QObject {
    Q_OBJECT

public:
    /// `logbook` outlives this.
    explicit LogbookEditor(Logbook *logbook, QObject *parent = nullptr);

    /// Adds a pack, its id not looked at, and returns the id it gets; LogbookPack::none when read-only.
    qint64 addPack(const LogbookPack &pack);
    /// Gives the pack of this id all that `pack` holds: name, chemistry, note ...
    void changePack(const LogbookPack &pack);
    /// Removes a pack; its recordings are assigned to none.
    void removePack(qint64 id);
    /// Assigns recordings; LogbookPack::none: to none.
    void assign(const QVector<qint64> &ids, qint64 pack);
    /// Assigns each recording to the pack that is its value in `packs`, in one step.
    void assignEach(const QHash<qint64, qint64> &packs);
    /// Assigns the recordings of `others` to `into` and removes `others`.
    void mergePacks(const QVector<qint64> &others, qint64 into);
    /// Moves recordings to a new pack of this name, else like the one that the first of them has, and returns
    /// the id of that; LogbookPack::none when read-only.
    qint64 takeApart(const QVector<qint64> &ids, const QString &name);
    void setNote(qint64 id, const QString &note);
    /// Forgets rows. One whose file is still in a folder that is read comes back, without what the user knew.
    void removeRecordings(const QVector<qint64> &ids);

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < int(m_steps.size()); }
    QString undoText() const; ///< what undo() takes back, for a menu: "Rename pack"; empty without
    QString redoText() const;

public slots:
    void undo();
    void redo();

signals:
    /// canUndo(), canRedo() or their texts may have changed.
    void changed();

private:
    struct Step {
        QString text;
        LogbookBatch forward;
        LogbookBatch backward;
    };

    void apply(const QString &text, LogbookBatch batch);
    LogbookBatch reverseOf(const LogbookBatch &batch) const;
    void put(const QVector<qint64> &ids, qint64 pack, LogbookBatch *batch) const;
    void dropPack(qint64 id, qint64 heir, LogbookBatch *batch) const;

    Logbook *m_logbook;
    QVector<Step> m_steps;
    int m_done = 0; // of them; those behind were undone
};
