#include "widgets/inputgate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

InputGate::InputGate(QWidget *allowed)
    : m_allowed(allowed)
{
    qApp->installEventFilter(this);
}

bool InputGate::eventFilter(QObject *watched, QEvent *event)
{
    // Windows pass their events on to their widgets, which are looked at then.
    const bool concerned = watched->isWidgetType() || event->type() == QEvent::Shortcut;
    if (!concerned || !isInput(event->type()) || isAllowed(watched))
        return false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        emit escaped();
    return true;
}

bool InputGate::isAllowed(const QObject *watched) const
{
    const QObject *allowed = m_allowed;
    const QObject *modal = QApplication::activeModalWidget();
    for (const QObject *object = watched; object; object = object->parent()) {
        if (object == allowed || (modal && object == modal))
            return true;
    }
    return false;
}
