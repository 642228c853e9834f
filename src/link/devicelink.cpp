#include "link/devicelink.h"

void DeviceLink::stopProcess()
{
    sendCommand(QStringLiteral("#STOP\r\n"));
}
