#pragma once

#include "desk/closeguard.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

class Documents;
class FileWriter;
class GraphWindows;
class QWidget;
class WindowFiles;

/// Sees to it that no record is lost with a window that closes: a journal holds them, else the user is asked.
/// While a file is written no window closes; those that were to close do so when it is on the disk.
class UnsavedWindows : public QObject, public CloseGuard {
    Q_OBJECT

public:
    /// `shell` is the parent of boxes. All outlive this.
    UnsavedWindows(QWidget *shell, GraphWindows *graphs, Documents *documents, WindowFiles *windowFiles,
        FileWriter *writer);

    bool mayClose(MdiGraphChild *child) override;
    /// Whether the shell may close now. Asks about every window whose records no file holds. False when the
    /// user wants to go on, and when a file is to be written first: the shell is closed after that, unless
    /// it fails.
    bool mayCloseAll();

    /// The session ends: from now on nobody is asked, and nothing closes before releaseAll().
    void holdAll() { m_end = End::Held; }
    bool isHeld() const { return m_end != End::Unsaid; } ///< since holdAll()
    /// Writes the records that no file holds to files beside the journals, or, where that fails, in the
    /// user's home or the folder for temporary files. Done when nothing is written any more.
    void rescueAll();
    /// The same, and done when this returns; no event is needed and no window changes.
    void rescueAtOnce();
    /// Everything may close, unasked.
    void releaseAll() { m_end = End::Released; }

signals:
    void message(const QString &text, int timeout);

private slots:
    void onWritten(bool good);

private:
    enum Answer { Save, Discard, Cancel };
    enum class End { Unsaid, Held, Released };
    struct Pending {
        QPointer<MdiGraphChild> child;
        QString fileName; ///< to save as; empty: not to be saved
        int tries = 0;
    };
    struct Rescue {
        QPointer<MdiGraphChild> child;
        QString fileName;
    };

    bool isInDanger(const MdiGraphChild *child) const;
    QList<MdiGraphChild *> endangered() const;
    QStringList rescueFolders() const;
    void rescue(MdiGraphChild *child, QStringList folders);
    QString nameToRescue(MdiGraphChild *child, const QString &folder);
    bool settle(const QList<MdiGraphChild *> &children, QWidget *closing);
    void saveNext();
    void onSaved(bool saved);
    void closeSettled();
    bool askName(Pending *one, const QVector<Pending> &all);
    Answer ask(const MdiGraphChild *child);

    QWidget *m_shell;
    GraphWindows *m_graphs;
    Documents *m_documents;
    WindowFiles *m_windowFiles;
    FileWriter *m_writer;
    QVector<Pending> m_saves; ///< what the user wants to be saved before m_closing closes
    QPointer<QWidget> m_closing;
    bool m_settled = false; ///< m_closing closes: all is answered and saved
    QVector<QPointer<MdiGraphChild>> m_waiting; ///< to be closed when nothing is written any more
    bool m_shellWaits = false; ///< so is the shell
    End m_end = End::Unsaid; ///< of the session
    QVector<Rescue> m_rescues;
};
