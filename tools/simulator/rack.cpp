#include "simulator/rack.h"

#include <QStandardPaths>

namespace sim {

Rack::Rack(const RunSettings &run, QObject *parent)
    : QObject(parent)
    , m_run(run)
{
    if (m_run.folder.isEmpty())
        m_run.folder = defaultFolder();
}

Rack::~Rack() = default;

QString Rack::defaultFolder()
{
    const QString chosen = qEnvironmentVariable("VARNEL_PORT_DIR");
    return chosen.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QLatin1String("/varnelgraph")
        : chosen;
}

SimDevice *Rack::add(const DeviceSettings &settings, QString *error)
{
    if (device(settings.port)) {
        *error = QStringLiteral("%1 is given twice").arg(settings.port);
        return nullptr;
    }
    auto added = std::make_unique<SimDevice>(settings, m_run, &m_log);
    connect(added.get(), SIGNAL(happened(QString)), SIGNAL(happened(QString)));
    if (!added->begin(error))
        return nullptr;
    m_devices.push_back(std::move(added));
    return m_devices.back().get();
}

SimDevice *Rack::add(const QString &description, QString *error)
{
    error->clear();
    const DeviceSettings settings = DeviceSettings::parse(description, error);
    return error->isEmpty() ? add(settings, error) : nullptr;
}

SimDevice *Rack::device(const QString &port) const
{
    for (const auto &one : m_devices)
        if (one->port() == port)
            return one.get();
    return nullptr;
}

void Rack::setSpeed(double speed)
{
    m_run.speed = speed;
    for (const auto &one : m_devices)
        one->setSpeed(speed);
}

} // namespace sim
