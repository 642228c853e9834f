#pragma once

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QObject>

class ShownRecord;
class GraphWindows;
class MdiGraphChild;
class StatusFacts;

/// Notices which live graph windows have gone without a line for a while: the status bar names them, and the
/// displays dim the figures of the current one. Looks at each window once a second.
class StaleWatch : public QObject {
    Q_OBJECT

public:
    static constexpr int patience = 20; // seconds

    /// All outlive this.
    StaleWatch(GraphWindows *graphs, ShownRecord *shownRecord, StatusFacts *facts, QObject *parent);

    /// When the last line of `child` came; invalid while it was fresh at the last look, is not live, or null.
    QDateTime staleSince(const MdiGraphChild *child) const;
    /// Looks at all windows; it is `now` by the computer's clock, and `steady` ms since any moment by one
    /// that nobody sets.
    void lookAt(const QDateTime &now, qint64 steady);

public slots:
    /// Also to be called when another window becomes current.
    void look();
    /// A record of the current window is shown: figures that were dimmed are so no longer.
    void lookWhileStale();

private:
    struct Seen {
        quint64 revision = 0;
        QDateTime at; // by the computer's clock, for texts
        qint64 steady = 0;
    };

    void noteArrivals();

    GraphWindows *m_graphs;
    ShownRecord *m_shownRecord;
    StatusFacts *m_facts;
    QDateTime m_lastLook;
    qint64 m_lastSteady = 0;
    QHash<const MdiGraphChild *, Seen> m_seen; // keys are compared, never followed
    QMap<QString, QString> m_told; // ports and what is said of them
    QDateTime m_shown; // as the displays were told last
};
