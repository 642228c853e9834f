#include "settings/varnelsettings.h"

#include "ports/portinfo.h"

#include <QCoreApplication>

#include <algorithm>

VarnelSettings::VarnelSettings(QObject *parent)
    : QSettings(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::organizationName(),
        QCoreApplication::applicationName(), parent)
{
}

QStringList VarnelSettings::ports() const
{
    return value(QStringLiteral("ports"), QStringList()).toStringList();
}

void VarnelSettings::setPorts(const QStringList &ports)
{
    setValue(QStringLiteral("ports"), ports);
    sync();
}

bool VarnelSettings::sendTime() const
{
    return value(QStringLiteral("sendTime"), false).toBool();
}

void VarnelSettings::setSendTime(bool on)
{
    setValue(QStringLiteral("sendTime"), on);
    sync();
}

bool VarnelSettings::journalEnabled() const
{
    return value(QStringLiteral("journal/enabled"), true).toBool();
}

int VarnelSettings::journalMaxAgeDays() const
{
    return std::max(0, value(QStringLiteral("journal/maxAgeDays"), 0).toInt());
}

QStringList VarnelSettings::listenPorts() const
{
    const QStringList chosen = ports();
    QStringList present;
    const QStringList names = listPortNames();
    for (const QString &name : names) {
        if (chosen.contains(name) && !present.contains(name))
            present.append(name);
    }
    return present;
}
