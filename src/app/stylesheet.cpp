#include "app/stylesheet.h"

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QFile>

void installStyleSheet(QApplication *application, const QString &folder)
{
    const QString builtIn = QStringLiteral(":/files/application.qss");
    const QString own = folder + QDir::separator() + QStringLiteral("application.qss");
    QFile file(QFile::exists(own) ? own : builtIn);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("Unable to open :/files/application.qss");
        return;
    }
    // Up to the first NUL, as Latin-1.
    application->setStyleSheet(QString::fromLatin1(file.readAll().constData()));
}
