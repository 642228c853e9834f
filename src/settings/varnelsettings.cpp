#include "settings/varnelsettings.h"

#include "ports/portinfo.h"
#include "settings/settingskeeper.h"
#include "settings/settingskeys.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

void storeAtOnce(VarnelSettings *settings, const QString &key, const QVariant &value)
{
    settings->setValue(key, value);
    settings->sync();
}

} // namespace

VarnelSettings::VarnelSettings(QObject *parent)
    : QSettings(QSettings::IniFormat, QSettings::UserScope, QCoreApplication::organizationName(),
        QCoreApplication::applicationName(), parent)
{
    if (status() != QSettings::NoError)
        SettingsKeeper::instance().noteUnreadable(fileName());
}

VarnelSettings::~VarnelSettings()
{
    sync();
}

QVariant VarnelSettings::value(const QString &key, const QVariant &defaultValue) const
{
    QVariant changed;
    if (!SettingsKeeper::instance().find(fileName(), key, &changed))
        return QSettings::value(key, defaultValue);
    return changed.isValid() ? changed : defaultValue;
}

void VarnelSettings::setValue(const QString &key, const QVariant &value)
{
    SettingsKeeper::instance().change(fileName(), key, value);
    m_changed = true;
}

void VarnelSettings::clear()
{
    const QStringList keys = allKeys() + SettingsKeeper::instance().keys(fileName());
    for (const QString &key : keys)
        remove(key);
}

void VarnelSettings::sync()
{
    if (m_changed)
        SettingsKeeper::instance().write(fileName());
    m_changed = false;
}

QStringList VarnelSettings::ports() const
{
    return value(SettingsKey::ports, QStringList()).toStringList();
}

void VarnelSettings::setPorts(const QStringList &ports)
{
    storeAtOnce(this, SettingsKey::ports, ports);
}

bool VarnelSettings::sendTime() const
{
    return value(SettingsKey::sendTime, false).toBool();
}

void VarnelSettings::setSendTime(bool on)
{
    storeAtOnce(this, SettingsKey::sendTime, on);
}

QString VarnelSettings::language() const
{
    return value(SettingsKey::language).toString();
}

void VarnelSettings::setLanguage(const QString &code)
{
    storeAtOnce(this, SettingsKey::language, code.isEmpty() ? QVariant() : QVariant(code));
}

bool VarnelSettings::journalEnabled() const
{
    return value(SettingsKey::journalEnabled, true).toBool();
}

int VarnelSettings::journalMaxAgeDays() const
{
    return std::max(0, value(SettingsKey::journalMaxAge, 0).toInt());
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
