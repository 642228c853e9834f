#include "link/hangup.h"

#include <QSerialPort>

#include <poll.h>

bool hasHungUp(const QSerialPort &port)
{
    pollfd line = {port.handle(), POLLIN, 0};
    return poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}
