#pragma once

#include <QDateTime>

class QString;

/// `now`, a local time, as devices take it: "ss:mm:HH:dd:MM:yy".
QString currentTimeText(const QDateTime &now = QDateTime::currentDateTime());
/// The command that sets a device's clock to `now`, with its line end.
QString clockCommand(const QDateTime &now = QDateTime::currentDateTime());
