#include "ports/portinfo.h"

#include "ports/portscan.h"

#include <QSerialPortInfo>
#include <QSettings>
#include <QStringList>

QVector<PortInfo> askForPorts()
{
    QVector<PortInfo> ports;
    const auto infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : infos)
        ports.append({info.portName(), info.description(), info.systemLocation()});
    return ports;
}

QString portLinkFolder()
{
    return QString();
}

QByteArray portFingerprint()
{
    const QSettings present(
        QStringLiteral("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM"), QSettings::NativeFormat);
    QByteArray fingerprint;
    const QStringList drivers = present.allKeys();
    for (const QString &driver : drivers)
        fingerprint += driver.toUtf8() + ' ' + present.value(driver).toString().toUtf8() + '\n';
    return fingerprint;
}

QByteArray portIdentity(const PortInfo &port)
{
    return port.location.toUtf8();
}
