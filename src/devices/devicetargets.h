#pragma once

#include <QString>
#include <QVector>

class SerialReader;

/// Which devices a command of the user is meant for. The main window answers
/// from its windows and its listened ports.
class DeviceTargets {
public:
    virtual ~DeviceTargets() = default;

    /// Readers of all listened ports, in the order in which they were opened. Ask again after anything that
    /// runs the event loop: ports come and go.
    virtual QVector<SerialReader *> readers() const = 0;
    /// The reader that feeds the active graph window; null without such a window or when nothing feeds it.
    virtual SerialReader *activeReader() const = 0;
    /// Port that feeds the active graph window or did; empty without such a window and for that of a file.
    virtual QString activePort() const = 0;
    /// Asks the active graph window to stop its process; true when it has told its device.
    virtual bool stopActiveProcess() = 0;
    /// The reader when exactly one port is listened on, else null.
    SerialReader *onlyReader() const;
};
