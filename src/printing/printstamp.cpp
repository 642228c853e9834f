#include "printing/printstamp.h"

#include <QDateTime>
#include <QLocale>

QString printedName(int number, const QString &device, const QString &source)
{
    return QStringLiteral("%1: ").arg(number) + (device + QLatin1Char(' ') + source).trimmed();
}

QString printDetails(const QStringList &windows)
{
    const QString now = QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
    return (windows + QStringList{now}).join(QStringLiteral(", "));
}
