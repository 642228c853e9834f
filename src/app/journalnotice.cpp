#include "app/journalnotice.h"

#include "app/statusfacts.h"
#include "files/journalkeeper.h"
#include "settings/varnelsettings.h"

#include <QDesktopServices>
#include <QDir>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace {

QString toldSizeKey()
{
    return QStringLiteral("journal/toldSize");
}

} // namespace

JournalNotice::JournalNotice(const JournalKeeper *keeper, StatusFacts *facts, QWidget *window)
    : QObject(window)
    , m_facts(facts)
    , m_window(window)
{
    connect(keeper, SIGNAL(stalled(QString)), this, SLOT(showStalled(QString)));
    connect(keeper, SIGNAL(resumed()), this, SLOT(showResumed()));
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

void JournalNotice::showLarge(const QString &path, qint64 bytes)
{
    VarnelSettings settings;
    const qint64 told = settings.value(toldSizeKey(), 0).toLongLong();
    if (told > 0 && told <= bytes && bytes - told < JournalKeeper::largeFolder)
        return; // told on another day, and left so
    settings.setValue(toldSizeKey(), bytes);
    m_folder = path;
    const QString text = tr("Your recordings take %1.").arg(QLocale().formattedDataSize(bytes))
        + QLatin1Char('\n')
        + tr("None of them is deleted unless you do it, in %1.").arg(QDir::toNativeSeparators(path));
    auto *box = new QMessageBox(QMessageBox::Information, tr("Recordings"), text, QMessageBox::Ok, m_window);
    box->setObjectName(QStringLiteral("journalLarge"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    QPushButton *open = box->addButton(tr("Open folder"), QMessageBox::ActionRole);
    connect(open, SIGNAL(clicked()), this, SLOT(openFolder()));
    box->show();
}

void JournalNotice::openFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(m_folder));
}
