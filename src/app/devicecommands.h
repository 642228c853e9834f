#pragma once

#include <QObject>

class DeviceTargets;
class SerialReader;

/// The commands that the user sends from the main window: "Stop process" and "Set time".
class DeviceCommands : public QObject {
    Q_OBJECT

public:
    /// `targets` is not owned and outlives this.
    explicit DeviceCommands(DeviceTargets *targets, QObject *parent = nullptr);

    /// The local date and time now as the devices take it: "ss:mm:HH:dd:MM:yy".
    static QString currentTimeText();
    /// Stops the process of the active window's device; where none is fed, that of the only
    /// listened port. With several ports and no live active window nothing is sent, it would be a
    /// guess; false then, which is told.
    bool stopProcess();
    /// Sets the clock of the active window's device, or of every listened port, one after the other with
    /// 500 ms between the two commands of each. Returns when all is sent. Ports are read and windows drawn
    /// meanwhile, the user's input waits. A call from inside is ignored; that there is no port is told.
    void setTime();

signals:
    /// setTime() runs the event loop from here until waitEnded(): not the time
    /// for boxes that wait for the user.
    void waitBegun();
    void waitEnded();
    /// For the status bar; the time in ms.
    void message(const QString &text, int time);

private:
    /// False where there is no port to send to, which is told.
    bool hasPort();
    void setTimeOf(SerialReader *reader);
    void pause();

    DeviceTargets *targets;
    bool waiting = false;
};
