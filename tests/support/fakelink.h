#pragma once

#include "link/devicelink.h"

#include <QStringList>

/// A device on "COM7" that keeps what it is told.
class FakeLink : public DeviceLink {
public:
    void sendCommand(const QString &text) override { commands.append(text); }
    QString portName() const override { return QStringLiteral("COM7"); }
    bool isNewProcess() const override { return false; }
    void detachGraphChild(RecordingWindow *) override { ++detached; }

    QStringList commands;
    int detached = 0;
};
