#pragma once

#include <QFile>
#include <QSerialPort>

#include <cstdio>

/// What a test program is as a process of its own that has been started with --hold: another one that uses
/// the port at `location`, until it is killed. Says "held" once it has it.
inline int holdPort(const char *location)
{
    QSerialPort port(QFile::decodeName(location));
    if (!port.open(QIODevice::ReadWrite))
        return 1;
    std::puts("held");
    std::fflush(stdout);
    return std::getchar();
}
