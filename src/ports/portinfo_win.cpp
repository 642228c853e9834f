#include "ports/portinfo.h"

#include "ports/portscan.h"

#include <QSerialPortInfo>

#include <iterator>

#include <windows.h>

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

// Asked of the system itself: names of drivers hold backslashes, behind which the settings' classes look for
// folders.
QByteArray portFingerprint()
{
    QByteArray fingerprint;
    HKEY ports = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_QUERY_VALUE, &ports)
        != ERROR_SUCCESS)
        return fingerprint; // made with the first port
    for (DWORD index = 0;; ++index) {
        wchar_t driver[256];
        wchar_t port[256];
        DWORD driverLetters = DWORD(std::size(driver));
        DWORD portBytes = sizeof port;
        const LSTATUS status = ::RegEnumValueW(ports, index, driver, &driverLetters, nullptr, nullptr,
            reinterpret_cast<BYTE *>(port), &portBytes);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            break; // none is left, or the key has gone with the last port
        if (status == ERROR_SUCCESS)
            fingerprint += QString::fromWCharArray(driver, int(driverLetters)).toUtf8() + ' '
                + QByteArray(reinterpret_cast<const char *>(port), int(portBytes)) + '\n';
    }
    ::RegCloseKey(ports);
    return fingerprint;
}

QByteArray portIdentity(const PortInfo &port)
{
    return port.location.toUtf8();
}
