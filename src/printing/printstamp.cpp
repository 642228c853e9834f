#include "printing/printstamp.h"

#include <QDateTime>
#include <QLocale>

QString printedName(int number, const QString &device, const QString &source)
{
    const QString name = (device + QLatin1Char(' ') + source).trimmed();
    return number == -1 ? name : QString::number(number) + QStringLiteral(": ") + name;
}

QString printDetails(const QStringList &windows)
{
    const QString now = QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
    return (windows + QStringList{now}).join(QStringLiteral(", "));
}
