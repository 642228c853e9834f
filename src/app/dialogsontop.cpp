#include "app/dialogsontop.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QWindow>

#include <algorithm>

namespace {

bool isOnTop(const QWidget *window)
{
    return window->isVisible() && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

DialogsOnTop::DialogsOnTop(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool DialogsOnTop::eventFilter(QObject *watched, QEvent *event)
{
    // Comes after the native window is made and before it is seen. A change of the
    // widget's own flags would hide it.
    if (event->type() == QEvent::Show) {
        const auto *dialog = qobject_cast<QDialog *>(watched);
        const QWidgetList windows = QApplication::topLevelWidgets();
        if (dialog && dialog->isModal() && dialog->windowHandle()
            && std::any_of(windows.begin(), windows.end(), isOnTop))
            dialog->windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
    }
    return QObject::eventFilter(watched, event);
}
