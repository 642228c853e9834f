#include "displays/printstamp.h"

#include <QDateTime>
#include <QLocale>

QString printDetails(const QStringList &devices)
{
    const QString now = QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
    return (devices + QStringList{now}).join(QStringLiteral(", "));
}
