#pragma once

#include <QString>

class RecordingWindow;

/// What a graph window asks of the device that feeds it.
class DeviceLink {
public:
    virtual ~DeviceLink() = default;

    /// Writes `text` to the device as Latin-1; nothing tells whether it arrived.
    virtual void sendCommand(const QString &text) = 0;
    /// The device's process ends, which it tells by its letter.
    void stopProcess();
    /// Name of the port, for example "COM3".
    virtual QString portName() const = 0;
    /// The next good line starts a new recording.
    virtual bool isNewProcess() const = 0;
    /// Called by a graph window that goes away: nothing more may be sent to it.
    virtual void detachGraphChild(RecordingWindow *child) = 0;
};
