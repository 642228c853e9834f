#pragma once

#include <QString>
#include <QVector>

class ListenedPorts;
class LiveWindows;
class SerialReader;

/// Which devices a command of the user is meant for: those of the listened ports and of the current window.
class DeviceTargets {
public:
    /// Neither is owned; both outlive this.
    DeviceTargets(const ListenedPorts *ports, LiveWindows *windows)
        : m_ports(ports)
        , m_windows(windows)
    {
    }

    /// Readers of all listened ports, in the order in which they were opened. Ask again after anything that
    /// runs the event loop: ports come and go.
    QVector<SerialReader *> readers() const;
    /// The reader that feeds the current graph window; null without such a window or when nothing feeds it.
    SerialReader *activeReader() const;
    /// Port that feeds the current graph window or did; empty without such a window and for that of a file.
    QString activePort() const;
    /// Asks the current graph window to stop its process; true when it has told its device.
    bool stopActiveProcess();
    /// The reader when exactly one port is listened on, else null.
    SerialReader *onlyReader() const;

private:
    const ListenedPorts *m_ports;
    LiveWindows *m_windows;
};
