#include "app/tools/logbookparts.h"

#include "documents/documents.h"
#include "graph/mdigraphchild.h"
#include "journal/journalkeeper.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "settings/messagetime.h"
#include "widgets/warningbox.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

LogbookParts::LogbookParts(QWidget *shell, const JournalKeeper *keeper, const Documents *documents)
    : QObject(shell)
    , m_shell(shell)
    , m_logbook(new Logbook(this))
    , m_editor(new LogbookEditor(m_logbook, this))
    , m_reader(new LogbookReader(m_logbook, keeper->folder().path(), this))
{
    connect(keeper,
        SIGNAL(began(QString,QString,Varnel3Data)), m_reader, SLOT(beginLive(QString,QString,Varnel3Data)));
    connect(keeper, SIGNAL(ended(QString)), m_reader, SLOT(endLive(QString)));
    connect(keeper, SIGNAL(discarded(QString)), m_reader, SLOT(dropLive(QString)));
    connect(keeper, SIGNAL(replaced(QString,QString)), m_reader, SLOT(renameLive(QString,QString)));
    connect(documents,
        SIGNAL(fileOpened(QString,MdiGraphChild*,FileStamp)), this,
            SLOT(onOpened(QString,MdiGraphChild*,FileStamp)));
    connect(documents, SIGNAL(fileSaved(QString,QString)), m_reader, SLOT(lookAtCopy(QString,QString)));
    connect(m_logbook, SIGNAL(troubleChanged()), this, SLOT(tellTrouble()));
    connect(m_logbook, SIGNAL(told(QString)), this, SLOT(tellDamage(QString)));
}

void LogbookParts::open()
{
    m_logbook->open(Logbook::defaultFolder());
}

// What merely takes its time is waited for at the end.
bool LogbookParts::mayClose()
{
    if (m_logbook->isUsersWritten() || m_logbook->trouble().isEmpty())
        return true;
    QMessageBox box(QMessageBox::Warning, tr("Logbook"),
        tr("What you have changed in the logbook is lost if the program ends now."), QMessageBox::Cancel,
        m_shell);
    box.setObjectName(QStringLiteral("logbookUnwritten"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(m_logbook->trouble());
    const QPushButton *sure = box.addButton(tr("End all the same"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == sure || m_logbook->isUsersWritten();
}

// The window may be closed before its turn comes, and records may be added to it.
void LogbookParts::onOpened(const QString &fileName, MdiGraphChild *child, const FileStamp &stamp)
{
    const QPointer<MdiGraphChild> window(child);
    const quint64 revision = child->store().revision();
    m_reader->lookAtOpened(fileName, stamp, [window, revision] {
        return window && window->store().revision() == revision ? &window->store() : nullptr;
    });
}

void LogbookParts::tellTrouble()
{
    if (!m_logbook->trouble().isEmpty())
        emit message(m_logbook->trouble(), usualMessageTime);
}

void LogbookParts::tellDamage(const QString &text)
{
    showWarningBox(m_shell, "logbookDamaged", tr("Logbook"), text);
}
