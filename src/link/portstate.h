#pragma once

class QSerialPort;

// What the systems do differently about an open port.

/// Whether the device behind an open port has gone, rather than that reading or writing failed for once.
bool hasHungUp(const QSerialPort &port);

/// Whether the system holds bytes of the port that can be read without waiting. False where nothing tells.
bool hasBytesWaiting(const QSerialPort &port);
