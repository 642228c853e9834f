#pragma once

#include <QString>

class QWidget;

/// Shows a box that waits for no one; `details` unfold under `text`. `objectName`
/// tells boxes of different causes apart.
void showWarningBox(QWidget *parent, const char *objectName, const QString &title, const QString &text,
    const QString &details = QString());
