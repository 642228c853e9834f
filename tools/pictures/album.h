#pragma once

#include <QDir>
#include <QSize>
#include <QString>

#include <functional>

class QAction;
class QWidget;

/// Keeps pictures of the program's windows as PNG files in one folder. What returns a bool is false, with the
/// reason in trouble(), where something doesn't come within a minute or can't be written.
class Album {
public:
    explicit Album(const QString &folder)
        : m_folder(folder)
    {
    }

    QString trouble() const { return m_trouble; }
    bool fail(const QString &reason);
    /// Lets the program go on until `condition` holds.
    bool wait(const char *what, const std::function<bool()> &condition);
    /// Puts the pointer at this share of the widget's width and height.
    static void point(QWidget *widget, double x, double y);
    /// Keeps `widget` as NAME.png, once all that waits to be painted is painted.
    bool keep(const QString &name, QWidget *widget);
    /// Switches a display on, keeps it, and switches it off.
    bool toggle(const QString &name, QAction *action, const char *className);
    /// Calls up a dialog that waits for its user, keeps it, and takes it away.
    bool dialog(const QString &name, QAction *action);
    /// Waits for the box of this object's name, or for any where it is empty; keeps it and agrees.
    bool box(const QString &name, const QString &objectName);
    /// Waits for a window of this class, keeps it and closes it.
    bool window(const QString &name, const char *className, const QSize &size = QSize());

private:
    QDir m_folder;
    QString m_trouble;
};
