#include "app/settingsnotice.h"

#include "widgets/warningbox.h"
#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"

#include <QDebug>
#include <QDir>
#include <QWidget>

SettingsNotice::SettingsNotice(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    connect(&SettingsKeeper::instance(), SIGNAL(troubled()), this, SLOT(look()), Qt::QueuedConnection);
    SettingsKeeper::instance().write(VarnelSettings().fileName());
    QMetaObject::invokeMethod(this, "look", Qt::QueuedConnection); // what was read before this was there
}

void SettingsNotice::look()
{
    const QString unreadable = SettingsKeeper::instance().unreadable();
    const QString unwritable = SettingsKeeper::instance().unwritable();
    if (!unreadable.isEmpty() && !m_readTold) {
        m_readTold = true;
        showWarningBox(m_window, "settingsUnreadable", tr("Settings"),
            tr("Not all of your settings could be read. What is missing is as in a new installation.")
                + QLatin1Char('\n') + QDir::toNativeSeparators(unreadable));
    }
    if (!unwritable.isEmpty() && !m_writeTold) {
        m_writeTold = true;
        qWarning() << "The settings can't be written:" << unwritable;
        showWarningBox(m_window, "settingsUnwritable", tr("Settings"),
            tr("Your settings can't be written. What you change holds until the program ends.")
                + QLatin1Char('\n') + unwritable);
    }
}
