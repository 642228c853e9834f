#pragma once

class QApplication;
class QString;

/// Gives `application` the style sheet "application.qss" of `folder`, or the built-in one where there is
/// none; with the built-in one, which is light, a light palette, whatever the system's is. One that can't be
/// read is only logged.
void installStyleSheet(QApplication *application, const QString &folder);
