#include "pictures/album.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int patience = 60000; // ms
constexpr int quiet = 400; // ms in which a window shows all that it was told

void goOn(int time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

QWidget *visible(const char *className, const QString &objectName = QString())
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->isVisible() && widget->inherits(className)
            && (objectName.isEmpty() || widget->objectName() == objectName))
            return widget;
    }
    return nullptr;
}

} // namespace

bool Album::fail(const QString &reason)
{
    m_trouble = reason;
    return false;
}

bool Album::wait(const char *what, const std::function<bool()> &condition)
{
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.hasExpired(patience))
            return fail(QStringLiteral("waited in vain for %1").arg(QLatin1String(what)));
        goOn(20);
    }
    return true;
}

void Album::point(QWidget *widget, double x, double y)
{
    const QPointF place(widget->width() * x, widget->height() * y);
    QMouseEvent move(QEvent::MouseMove, place, widget->mapToGlobal(place.toPoint()), Qt::NoButton,
        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

bool Album::keep(const QString &name, QWidget *widget)
{
    goOn(quiet);
    const QString path = m_folder.filePath(name + QStringLiteral(".png"));
    return widget->grab().save(path) || fail(QStringLiteral("%1 can't be written").arg(path));
}

bool Album::toggle(const QString &name, QAction *action, const char *className)
{
    action->trigger();
    if (!wait(className, [=] { return visible(className) != nullptr; }) || !keep(name, visible(className)))
        return false;
    action->trigger();
    return true;
}

bool Album::dialog(const QString &name, QAction *action)
{
    bool kept = false;
    QTimer::singleShot(0, action, [&] {
        const auto opened = [] { return QApplication::activeModalWidget() != nullptr; };
        kept = wait("a dialog", opened) && keep(name, QApplication::activeModalWidget());
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    action->trigger(); // comes back when the dialog has gone
    return kept;
}

bool Album::box(const QString &name, const QString &objectName)
{
    if (!wait("a box", [&] { return visible("QMessageBox", objectName) != nullptr; }))
        return false;
    auto *box = static_cast<QMessageBox *>(visible("QMessageBox", objectName));
    if (!keep(name, box))
        return false;
    box->accept();
    return true;
}

bool Album::window(const QString &name, const char *className, const QSize &size)
{
    if (!wait(className, [=] { return visible(className) != nullptr; }))
        return false;
    if (size.isValid())
        visible(className)->resize(size);
    if (!keep(name, visible(className)))
        return false;
    visible(className)->close();
    return true;
}
