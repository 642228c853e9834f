#include "logbook/window/dialogs/notedialog.h"

#include "logbook/logbookrecording.h"
#include "logbook/window/dialogs/dialogbuttons.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

NoteDialog::NoteDialog(const QString &of, const QString &note, QWidget *parent)
    : QDialog(parent)
    , m_note(new QPlainTextEdit(note, this))
{
    setWindowTitle(tr("Note"));
    auto *label = new QLabel(of, this);
    label->setTextFormat(Qt::PlainText);
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setAccessibleName(tr("Note"));
    m_note->setToolTip(tr("Your own words on the chosen recordings; the filter finds them."));
    m_note->setTabChangesFocus(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_note);
    layout->addWidget(
        createDialogButtons(this, tr("Keeps the note. It can be undone."), tr("Changes nothing.")));
    m_note->setFocus();
}

QString NoteDialog::note() const
{
    return m_note->toPlainText().left(LogbookPack::longestNote);
}
