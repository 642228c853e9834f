#pragma once

#include <QAbstractItemView>
#include <QAccessible>
#include <QLayout>
#include <QWidget>

/// The first widget below `window` that lies over its neighbour or sticks out of what it is laid out in, or
/// that takes the keyboard and has no tool tip or no name that is spoken; empty without one.
inline QByteArray layoutFault(const QWidget &window)
{
    const auto all = window.findChildren<QWidget *>();
    for (const QWidget *one : all) {
        const QWidget *parent = one->parentWidget();
        if (!one->isVisible() || one->isWindow() || !parent->layout())
            continue;
        const auto name = [](const QWidget *widget) {
            return ' ' + QByteArray(widget->metaObject()->className()) + ' ' + widget->objectName().toUtf8();
        };
        if (!parent->rect().contains(one->geometry()))
            return "sticks out:" + name(one);
        const bool hasOwnTips = qobject_cast<const QAbstractItemView *>(one) != nullptr; // of its rows
        if (one->focusPolicy() & Qt::TabFocus && !hasOwnTips && one->toolTip().isEmpty())
            return "has no tip:" + name(one);
        const QAccessibleInterface *spoken
            = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(one));
        if (one->focusPolicy() & Qt::TabFocus && (!spoken || spoken->text(QAccessible::Name).isEmpty()))
            return "has no name:" + name(one);
        const auto siblings = parent->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *other : siblings)
            if (other != one && other->isVisible() && !other->isWindow()
                && other->geometry().intersects(one->geometry()))
                return "lie over each other:" + name(one) + name(other);
    }
    return {};
}
