#include "devices/devicetargets.h"

SerialReader *DeviceTargets::onlyReader() const
{
    const QVector<SerialReader *> all = readers();
    return all.size() == 1 ? all.first() : nullptr;
}
