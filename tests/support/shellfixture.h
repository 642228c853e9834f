#pragma once

#include "settings/settingskeeper.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

/// Gives a test that shows the program's windows settings and ports of
/// its own. To be made before any of them.
class ShellFixture {
public:
    ShellFixture()
    {
        QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
        QCoreApplication::setApplicationVersion(QStringLiteral("V4.60"));
        QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraphTest"));
        // the program's own, and what Qt's file dialogs remember from run to run
        for (const QSettings::Format format : {QSettings::IniFormat, QSettings::NativeFormat})
            QSettings::setPath(format, QSettings::UserScope, folder.filePath(QStringLiteral("settings")));
        QDir(folder.path()).mkpath(QStringLiteral("ports"));
        qputenv("VARNEL_PORT_DIR", portFolder().toLocal8Bit());
        qputenv("XDG_DATA_HOME", folder.filePath(QStringLiteral("data")).toLocal8Bit());
    }

    ~ShellFixture() { SettingsKeeper::waitForWritten(std::chrono::seconds(60)); }
    Q_DISABLE_COPY(ShellFixture)

    /// Where ports are linked.
    QString portFolder() const { return folder.filePath(QStringLiteral("ports")); }
    /// For files that the test writes.
    QString path(const QString &name) const { return folder.filePath(name); }

private:
    QTemporaryDir folder;
};
