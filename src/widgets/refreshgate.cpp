#include "widgets/refreshgate.h"

#include <QEvent>
#include <QWidget>

RefreshGate::RefreshGate(QWidget *display)
    : QObject(display)
    , m_display(display)
{
    m_timer.setInterval(interval);
    m_timer.setSingleShot(true);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(onInterval()));
    display->installEventFilter(this);
}

void RefreshGate::request()
{
    if (isSeen() && !m_timer.isActive())
        open();
    else
        m_pending = true;
}

bool RefreshGate::eventFilter(QObject *watched, QEvent *event)
{
    // The event comes before the first paint, so that a display never opens with old figures.
    const bool comes = event->type() == QEvent::Show || event->type() == QEvent::WindowStateChange;
    if (comes && m_pending && isSeen())
        open();
    return QObject::eventFilter(watched, event);
}

void RefreshGate::onInterval()
{
    if (m_pending && isSeen())
        open();
}

bool RefreshGate::isSeen() const
{
    return m_display->isVisible() && !m_display->window()->isMinimized();
}

void RefreshGate::open()
{
    m_pending = false;
    m_timer.start();
    emit refresh();
}
