#include "app/tools/overlaylabel.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

QString overlayLabel(const QString &fileName, double seconds)
{
    static const QRegularExpression journal(
        QStringLiteral("^(\\d{4}-\\d{2}-\\d{2})_(\\d{2})-(\\d{2})-\\d{2}_(.+)$"));
    const QFileInfo file(fileName);
    const QString name = file.completeBaseName();
    const QRegularExpressionMatch match = journal.match(name);
    if (match.hasMatch())
        return QStringLiteral("%1, %2 %3:%4")
            .arg(match.captured(4), match.captured(1), match.captured(2), match.captured(3));
    if (!file.exists())
        return name;
    const QDateTime start = file.lastModified().addSecs(-qint64(seconds));
    return name + start.toString(QStringLiteral("', ~'yyyy-MM-dd HH:mm"));
}
