#include "devices/devicetargets.h"

#include "desk/livewindows.h"
#include "devices/listenedports.h"
#include "link/serialreader.h"

QVector<SerialReader *> DeviceTargets::readers() const
{
    return m_ports->readers();
}

SerialReader *DeviceTargets::activeReader() const
{
    const DeviceLink *source = m_windows->currentLink();
    return source ? m_ports->readerFor(source->portName()) : nullptr;
}

QString DeviceTargets::activePort() const
{
    return m_windows->currentPort();
}

bool DeviceTargets::stopActiveProcess()
{
    return m_windows->stopCurrentProcess();
}

SerialReader *DeviceTargets::onlyReader() const
{
    return m_ports->onlyReader();
}
