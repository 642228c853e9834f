#pragma once

#include <QChar>
#include <QLatin1String>

/// `line` without white space at either end, as QString::trimmed sees it.
inline QLatin1String trimmedLine(QLatin1String line)
{
    const char *begin = line.begin();
    const char *end = line.end();
    while (end != begin && QChar(uchar(end[-1])).isSpace())
        --end;
    while (begin != end && QChar(uchar(*begin)).isSpace())
        ++begin;
    return QLatin1String(begin, int(end - begin));
}
