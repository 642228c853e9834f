#include "app/process/console.h"

#include <cstdio>

void joinConsole() { }

void tellCaller(const QString &text, Channel channel)
{
    std::fputs(qPrintable(text), channel == Channel::Output ? stdout : stderr);
}
