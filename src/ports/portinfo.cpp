#include "ports/portinfo.h"

#include <QStringList>

QStringList listPortNames()
{
    QStringList names;
    const QVector<PortInfo> ports = listPorts();
    for (const PortInfo &port : ports)
        names.append(port.name);
    return names;
}

PortInfo findPort(const QString &name)
{
    const QVector<PortInfo> ports = listPorts();
    for (const PortInfo &port : ports) {
        if (port.name == name)
            return port;
    }
    return {name, QString(), QString()};
}
