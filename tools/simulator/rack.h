#pragma once

#include "simulator/simdevice.h"

#include <QObject>

#include <memory>
#include <vector>

namespace sim {

/// Any number of simulated devices in one event loop, with a common log.
class Rack : public QObject {
    Q_OBJECT

public:
    explicit Rack(const RunSettings &run, QObject *parent = nullptr);
    ~Rack() override; ///< unplugs all

    /// Where the program looks for ports of its own: VARNEL_PORT_DIR, else
    /// "varnelgraph" in the runtime folder.
    static QString defaultFolder();

    bool openLog(const QString &fileName, QString *error) { return m_log.open(fileName, error); }
    void flushLog() { m_log.flush(); }

    /// Adds a device and begins with it; null with the reason in `error`. The device lives as long as this.
    SimDevice *add(const DeviceSettings &settings, QString *error);
    SimDevice *add(const QString &description, QString *error);
    SimDevice *device(const QString &port) const; ///< null when there is none
    const std::vector<std::unique_ptr<SimDevice>> &devices() const { return m_devices; }
    void setSpeed(double speed);

signals:
    void happened(const QString &text);

private:
    RunSettings m_run;
    HandOverLog m_log;
    std::vector<std::unique_ptr<SimDevice>> m_devices;
};

} // namespace sim
