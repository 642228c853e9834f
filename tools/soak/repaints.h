#pragma once

#include <QCoreApplication>
#include <QEvent>

namespace soak {

/// Counts the widgets of this process that are painted, while it lives.
class Repaints : public QObject {
public:
    Repaints() { qApp->installEventFilter(this); }
    qint64 count() const { return m_count; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

private:
    qint64 m_count = 0;
};

} // namespace soak
