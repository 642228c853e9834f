#include "desk/dialogsontop.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QWindow>

namespace {

bool isDisplay(const QWidget *window)
{
    return window->isVisible() && window->windowHandle() && !qobject_cast<const QDialog *>(window)
        && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

QWidgetList displays()
{
    QWidgetList displays;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (isDisplay(window))
            displays.append(window);
    }
    return displays;
}

// A change of the widget's own flags would hide it.
void setOnTop(const QWidget *window, bool onTop)
{
    window->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, onTop);
}

} // namespace

DialogsOnTop::DialogsOnTop(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool DialogsOnTop::eventFilter(QObject *watched, QEvent *event)
{
    const bool shown = event->type() == QEvent::Show; // there is a native window, which is not seen yet
    if ((shown || event->type() == QEvent::Hide) && watched->isWidgetType()) {
        auto *window = static_cast<QWidget *>(watched);
        if (auto *dialog = qobject_cast<QDialog *>(window)) {
            m_dialogs.removeAll(nullptr);
            m_dialogs.removeAll(dialog);
            if (shown)
                m_dialogs.append(dialog);
            if (shown && !displays().isEmpty())
                setOnTop(dialog, true);
            arrangeSoon();
        } else if (shown && isDisplay(window)) {
            setOnTop(window, !QApplication::activeModalWidget());
            arrangeSoon();
        }
    }
    return QObject::eventFilter(watched, event);
}

// Once what is shown is on the screen: window managers put it below an active display.
void DialogsOnTop::arrangeSoon()
{
    if (!m_arranging)
        QMetaObject::invokeMethod(this, "arrange", Qt::QueuedConnection);
    m_arranging = true;
}

// Some window managers raise a modal dialog with its parent, and only within the parent's layer: displays
// that would cover it leave theirs until it is closed.
void DialogsOnTop::arrange()
{
    m_arranging = false;
    const QWidgetList shown = displays();
    if (shown.isEmpty())
        return;
    QWidget *modal = QApplication::activeModalWidget();
    for (const QPointer<QDialog> &dialog : qAsConst(m_dialogs)) {
        if (!dialog || !dialog->windowHandle())
            continue;
        setOnTop(dialog, true);
        if (dialog != modal)
            dialog->raise();
    }
    if (modal)
        modal->raise(); // after those that take no input now
    for (QWidget *display : shown) {
        const bool covers = modal && display->frameGeometry().intersects(modal->frameGeometry());
        setOnTop(display, !covers);
        if (covers)
            display->raise();
    }
}
