#include "app/stylesheet.h"

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QStyle>
#include <QStyleFactory>

#include <memory>

namespace {

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The style sheet that comes with the program is light, and dark lists in a light dialog are neither.
QPalette lightPalette()
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Fusion")));
    return style ? style->standardPalette() : QPalette();
}

} // namespace

void installStyleSheet(QApplication *application, const QString &folder)
{
    const QString builtIn = QStringLiteral(":/files/application.qss");
    const QString own = folder + QDir::separator() + QStringLiteral("application.qss");
    QFile file(QFile::exists(own) ? own : builtIn);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("Unable to open :/files/application.qss");
        return;
    }
    const QByteArray sheet = file.readAll();
    if (sheet == contentsOf(builtIn))
        QApplication::setPalette(lightPalette());
    // Up to the first NUL, as Latin-1.
    application->setStyleSheet(QString::fromLatin1(sheet.constData()));
}
