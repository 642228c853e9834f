#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

/// Lets a display bring itself up to date at most ten times a second, and only while it is
/// shown: requests in between fall together into one at the end of the interval, requests of a
/// hidden or minimised display into one when it is shown.
class RefreshGate : public QObject {
    Q_OBJECT

public:
    static constexpr int interval = 100; // ms

    /// Watches `display`, which owns the gate.
    explicit RefreshGate(QWidget *display);

    /// The display has something new; refresh() follows now or later.
    void request();
    /// refresh() is still to follow.
    bool isPending() const { return m_pending; }

signals:
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onInterval();

private:
    bool isSeen() const;
    void open();

    QWidget *m_display; // the parent
    QTimer m_timer{this};
    bool m_pending = false;
};
