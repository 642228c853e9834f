#include "app/dialogsontop.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QWindow>

#include <algorithm>

namespace {

bool isOnTop(const QWidget *window)
{
    return window->isVisible() && !qobject_cast<const QDialog *>(window)
        && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

bool anyDisplay()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), isOnTop);
}

// A change of the widget's own flags would hide it.
void stayOnTop(const QDialog *dialog)
{
    if (dialog->windowHandle())
        dialog->windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

DialogsOnTop::DialogsOnTop(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool DialogsOnTop::eventFilter(QObject *watched, QEvent *event)
{
    // Comes after the native window is made and before it is seen.
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (dialog) {
            m_dialogs.removeAll(nullptr);
            m_dialogs.removeAll(dialog);
            m_dialogs.append(dialog);
        }
        if (dialog ? anyDisplay() : isOnTop(static_cast<QWidget *>(watched))) {
            if (dialog)
                stayOnTop(dialog);
            if (!m_raising) // once the window is on the screen: a window manager puts it below an active display
                QMetaObject::invokeMethod(this, "raiseDialogs", Qt::QueuedConnection);
            m_raising = true;
        }
    }
    return QObject::eventFilter(watched, event);
}

// The modal one last, since no other takes input.
void DialogsOnTop::raiseDialogs()
{
    m_raising = false;
    if (!anyDisplay())
        return;
    QList<QPointer<QDialog>> dialogs = m_dialogs;
    const QWidget *modal = QApplication::activeModalWidget();
    std::stable_partition(dialogs.begin(), dialogs.end(),
        [modal](const QPointer<QDialog> &dialog) { return dialog != modal; });
    for (const QPointer<QDialog> &dialog : qAsConst(dialogs)) {
        if (!dialog || !dialog->isVisible())
            continue;
        stayOnTop(dialog);
        dialog->raise();
    }
}
