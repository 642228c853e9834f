#include "soak/rackload.h"

namespace soak {

namespace {

// Most people have a "Varnel 3"; the short lines of the old models come several times as often.
const char *const descriptions[] = {
    "varnel3,cells=6,balance",
    "varnel3,cells=12,chemistry=LiFe,balance=1000,weak=4",
    "varnel3,cells=16,chemistry=NiMh",
    "varnel2plus,cells=3",
    "varnel3,cells=4,mode=discharge,balance",
    "tandor,cells=12",
    "varnel3,cells=16,balance,capacity=100000",
    "varnel2,cells=3",
};

sim::RunSettings settingsFor(const QString &folder, double speed)
{
    sim::RunSettings run;
    run.folder = folder;
    run.lineRate = speed <= 0;
    if (!run.lineRate)
        run.speed = speed;
    return run;
}

constexpr int longSilence = 1000000; // s

} // namespace

RackLoad::RackLoad(const QString &folder, int ports, double speed)
    : m_rack(settingsFor(folder, speed))
    , m_ports(ports)
{
}

bool RackLoad::begin(QString *error)
{
    constexpr int kinds = int(std::size(descriptions));
    for (int number = 1; number <= m_ports; ++number) {
        const QString description
            = QStringLiteral("COM%1:%2,endless,start=open")
                  .arg(QString::number(number), QLatin1String(descriptions[(number - 1) % kinds]));
        if (!m_rack.add(description, error))
            return false;
    }
    return true;
}

void RackLoad::quieten()
{
    for (const auto &device : m_rack.devices())
        device->silence(longSilence);
}

LineCounts RackLoad::handedOver() const
{
    LineCounts counts;
    for (const auto &device : m_rack.devices())
        counts[device->port()]
            = device->handedOver(sim::LineKind::Measurement) + device->handedOver(sim::LineKind::End);
    return counts;
}

qint64 RackLoad::lost() const
{
    qint64 lost = 0;
    for (const auto &device : m_rack.devices())
        lost += device->lost();
    return lost;
}

} // namespace soak
