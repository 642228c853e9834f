#include "link/hangup.h"

#include <QSerialPort>

#include <poll.h>

bool hasHungUp(const QSerialPort &port)
{
    pollfd line = {};
    line.fd = port.handle();
    return poll(&line, 1, 0) > 0; // asked for nothing, it tells of what is wrong
}
