#include "link/clockcommand.h"

QString currentTimeText(const QDateTime &now)
{
    return now.toString(QStringLiteral("ss:mm:HH:dd:MM:yy"));
}

QString clockCommand(const QDateTime &now)
{
    return QStringLiteral("#TIME!") + currentTimeText(now) + QStringLiteral("\r\n");
}
