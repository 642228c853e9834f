#include "documents/choosing/windowsnames.h"

#include <QRegularExpression>

bool isNameForWindows(const QString &name)
{
    // Names of devices are such with any ending and blanks before it; the port's number may be raised.
    static const QRegularExpression device(
        QStringLiteral("^(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[1-9\u00b9\u00b2\u00b3]) *(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression spoilt(QStringLiteral("[<>:\"/\\\\|?*\\x{00}-\\x{1f}]|[. ]$"));
    return !name.isEmpty() && !device.match(name).hasMatch() && !spoilt.match(name).hasMatch();
}
