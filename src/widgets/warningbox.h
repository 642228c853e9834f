#pragma once

#include <QMessageBox>

/// A box with an OK, to be shown, that waits for no one and goes when it is closed.
QMessageBox *createNotice(QWidget *parent, const char *objectName, QMessageBox::Icon icon,
    const QString &title, const QString &text);

/// Shows a box that waits for no one; `details` unfold under `text`. `objectName`
/// tells boxes of different causes apart.
void showWarningBox(QWidget *parent, const char *objectName, const QString &title, const QString &text,
    const QString &details = QString());
