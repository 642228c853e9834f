#pragma once

#include <QString>

/// "text"_s: the QString, for what is compared with one.
inline QString operator""_s(const char *text, size_t size)
{
    return QString::fromUtf8(text, int(size));
}
