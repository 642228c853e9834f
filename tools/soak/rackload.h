#pragma once

#include "simulator/rack.h"
#include "soak/load.h"

namespace soak {

/// Devices of all models that never come to an end.
class RackLoad : public Load {
public:
    /// `speed`: device seconds in a second; 0 sends as fast as each line carries.
    RackLoad(const QString &folder, int ports, double speed);

    bool begin(QString *error) override;
    void quieten() override;
    LineCounts handedOver() const override;
    qint64 lost() const override;

private:
    sim::Rack m_rack;
    int m_ports;
};

} // namespace soak
