#pragma once

#include <QByteArray>
#include <QVector>

struct PortInfo;

/// What the common part asks of the system.

/// What listPorts() tells. Takes milliseconds and opens ports.
QVector<PortInfo> askForPorts();
/// A text that changes whenever a port may have come or gone. Costs well
/// under a millisecond and opens no port.
QByteArray portFingerprint();
/// A text that differs between two devices that take turns under one name,
/// as far as the system tells them apart.
QByteArray portIdentity(const PortInfo &port);
