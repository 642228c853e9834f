#pragma once

#include "devices/devicetargets.h"

class GraphWindows;
class ListenedPorts;

/// The devices of the listened ports and of the current graph window.
class ShellTargets : public DeviceTargets {
public:
    /// Neither is owned; both outlive this.
    ShellTargets(ListenedPorts *listenedPorts, GraphWindows *graphWindows)
        : ports(listenedPorts)
        , graphs(graphWindows)
    {
    }

    QVector<SerialReader *> readers() const override;
    SerialReader *activeReader() const override;
    QString activePort() const override;
    bool stopActiveProcess() override;

private:
    ListenedPorts *ports;
    GraphWindows *graphs;
};
