#pragma once

#include <QByteArray>

struct PortInfo;

/// What a PortWatcher asks of the system besides the list of ports.

/// A text that changes whenever a port may have come or gone. Costs well
/// under a millisecond and opens no port.
QByteArray portFingerprint();
/// A text that differs between two devices that take turns under one name,
/// as far as the system tells them apart.
QByteArray portIdentity(const PortInfo &port);
