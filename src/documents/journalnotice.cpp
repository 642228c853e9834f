#include "documents/journalnotice.h"

#include "desk/statusfacts.h"
#include "journal/journalkeeper.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "widgets/warningbox.h"

#include <QDesktopServices>
#include <QDir>
#include <QLocale>
#include <QPushButton>
#include <QUrl>

JournalNotice::JournalNotice(const JournalKeeper *keeper, StatusFacts *facts, QWidget *window)
    : QObject(window)
    , m_facts(facts)
    , m_window(window)
{
    connect(keeper, SIGNAL(stalled(QString)), this, SLOT(showStalled(QString)));
    connect(keeper, SIGNAL(resumed()), this, SLOT(showResumed()));
    connect(keeper, SIGNAL(replaced(QString,QString)), this, SLOT(showReplaced(QString,QString)));
    connect(keeper, SIGNAL(folderLarge(QString,qint64)), this, SLOT(showLarge(QString,qint64)));
}

void JournalNotice::showStalled(const QString &reason)
{
    m_facts->set(StatusFacts::NotWritten, tr("recordings"), reason);
}

void JournalNotice::showResumed()
{
    m_facts->clear(StatusFacts::NotWritten, tr("recordings"));
}

void JournalNotice::showReplaced(const QString &fileName, const QString &newName)
{
    const QString text = tr("The file of a running recording was removed or replaced:") + QLatin1Char('\n')
        + QDir::toNativeSeparators(fileName) + QStringLiteral("\n\n")
        + tr("All that was recorded is written again, and recording goes on, in:") + QLatin1Char('\n')
        + QDir::toNativeSeparators(newName);
    showWarningBox(m_window, "journalReplaced", tr("Recordings"), text);
}

void JournalNotice::showLarge(const QString &path, qint64 bytes)
{
    VarnelSettings settings;
    const qint64 told = settings.value(SettingsKey::journalToldSize).toLongLong();
    if (told <= bytes && told > bytes - JournalKeeper::largeFolder)
        return; // told on another day, and left so
    settings.setValue(SettingsKey::journalToldSize, bytes);
    m_folder = path;
    const QString text = tr("Your recordings take %1.").arg(QLocale().formattedDataSize(bytes))
        + QLatin1Char('\n')
        + tr("None of them is deleted unless you do it, in %1.").arg(QDir::toNativeSeparators(path));
    QMessageBox *box
        = createNotice(m_window, "journalLarge", QMessageBox::Information, tr("Recordings"), text);
    QPushButton *open = box->addButton(tr("Open folder"), QMessageBox::ActionRole);
    connect(open, SIGNAL(clicked()), this, SLOT(openFolder()));
    box->show();
}

void JournalNotice::openFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_folder));
}
