#pragma once

#include "simulator/rack.h"
#include "soak/load.h"

namespace soak {

/// Devices of all models that never come to an end, each as fast as its line carries.
class RackLoad : public Load {
public:
    RackLoad(const QString &folder, int ports);

    bool begin(QString *error) override;
    void quieten() override;
    LineCounts handedOver() const override;
    qint64 lost() const override;

private:
    sim::Rack m_rack;
    int m_ports;
};

} // namespace soak
