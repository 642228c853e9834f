#pragma once

#include "app/closeguard.h"

#include <QList>
#include <QObject>

class Documents;
class GraphWindows;
class QWidget;
class Recordings;

/// Sees to it that no record is lost with a window that closes: a journal holds them, else the user is asked.
class UnsavedWindows : public QObject, public CloseGuard {
    Q_OBJECT

public:
    /// `shell` is the parent of boxes and has the slot showMessageStatusBar(QString,int). All outlive this.
    UnsavedWindows(QWidget *shell, GraphWindows *graphs, Documents *documents, Recordings *recordings);

    bool mayClose(MdiGraphChild *child) override;
    /// Asks about every window whose records no file holds, then saves; false when the user wants to
    /// go on, or one could not be saved.
    bool mayCloseAll();

signals:
    void message(const QString &text, int timeout);

private:
    enum Answer { Save, Discard, Cancel };
    struct Pending;

    bool isInDanger(const MdiGraphChild *child) const;
    bool save(const Pending &one);
    bool settle(const QList<MdiGraphChild *> &children);
    bool askName(Pending *one, const QVector<Pending> &all);
    Answer ask(const MdiGraphChild *child);

    QWidget *m_shell;
    GraphWindows *m_graphs;
    Documents *m_documents;
    Recordings *m_recordings;
};
