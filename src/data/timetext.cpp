#include "data/timetext.h"

#include "data/varnel3data.h"

namespace {

QString clock(qint64 hours, qint64 minutes, qint64 seconds)
{
    const auto two = [](qint64 value) { return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')); };
    return two(hours) + QLatin1Char(':') + two(minutes) + QLatin1Char(':') + two(seconds);
}

} // namespace

QString elapsedTimeText(double seconds)
{
    if (seconds < 0)
        return QStringLiteral("        ");
    const auto whole = qint64(seconds);
    return clock(whole / 3600, whole / 60 % 60, whole % 60);
}

QString clockText(const Varnel3Data &record)
{
    return clock(record.hour, record.minute, record.second);
}
