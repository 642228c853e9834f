#pragma once

#include <QString>
#include <QVector>

class MdiGraphChild;
class SerialReader;

/// The commands that the main window sends to devices on the user's behalf.
namespace DeviceCommands {

/// The local date and time now as the devices take it: "ss:mm:HH:dd:MM:yy".
QString currentTimeText();
/// Stops the process of the `active` window (may be null) or, where that is not live, of the only reader. False when
/// there was nobody to send to.
bool stopProcess(MdiGraphChild *active, const QVector<SerialReader *> &readers);
/// Sets the clock of the devices of `readers`, one after the other. Takes half a second a device, during which the
/// ports are read but the user's input waits.
void setTime(const QVector<SerialReader *> &readers);

} // namespace DeviceCommands
