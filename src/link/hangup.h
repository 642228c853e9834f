#pragma once

class QSerialPort;

/// Whether the device behind an open port has gone, rather than that reading or writing failed for once.
bool hasHungUp(const QSerialPort &port);
