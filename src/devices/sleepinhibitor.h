#pragma once

#include "devices/sleepblock.h"

#include <QObject>

class DeviceTargets;

/// Keeps the computer awake while a process is recorded on any port. The settings key
/// "power/keepAwake" (true when absent) turns it off.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// Looks at the readers of `targets` (not owned, outlives this) every five seconds.
    explicit SleepInhibitor(DeviceTargets *targets, QObject *parent = nullptr);

    bool isHeld() const { return block.isHeld(); }

public slots:
    void update();

private:
    bool isWanted() const;

    DeviceTargets *targets;
    SleepBlock block;
};
