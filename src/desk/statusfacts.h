#pragma once

#include <QMap>
#include <QObject>

class QLabel;
class QStatusBar;

/// Standing facts about ports and recordings, each kind a permanent label of the status bar that passing
/// messages do not wipe. What is listened on stands there always, at the very right.
class StatusFacts : public QObject {
    Q_OBJECT

public:
    enum Kind {
        Lost,
        Failing,
        Paused,
        Silent,
        Unwatched,
        NotWritten,
        Failed,
        Aborted,
        Completed,
        Listening,
        KindCount
    };

    /// `bar` outlives this.
    explicit StatusFacts(QStatusBar *bar);

    /// Names `port` under `kind`; `detail` explains it in the tool tip.
    void set(Kind kind, const QString &port, const QString &detail = QString());
    void clear(Kind kind, const QString &port);
    /// Names the ports of `facts`, each with its detail, and no other.
    void replace(Kind kind, const QMap<QString, QString> &facts);
    bool holds(Kind kind, const QString &port) const { return m_facts[kind].contains(port); }
    QStringList ports(Kind kind) const { return m_facts[kind].keys(); }
    /// What the label of `kind` says in full; empty while it is hidden.
    QString text(Kind kind) const;
    /// What the bar shows now and what it means, a text for each kind.
    QStringList explanations() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void refresh();
    QString explanation(Kind kind) const;
    void show(Kind kind, int widest);

    QStatusBar *m_bar; // not owned, outlives this
    QMap<QString, QString> m_facts[KindCount]; // port name to detail
    QLabel *m_labels[KindCount] = {};
};
