#include "logbook/window/dialogs/foldersdialog.h"

#include "logbook/window/dialogs/dialogbuttons.h"
#include "widgets/displayscale.h"
#include "widgets/mnemonics.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize foldersSize(460, 160); // px

} // namespace

FoldersDialog::FoldersDialog(const QString &ownFolder, const QStringList &folders, QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
    , m_remove(new QPushButton(this))
{
    setWindowTitle(tr("Folders of the logbook"));
    auto *label = new QLabel(
        tr("Recordings are read from %1 and from these folders:").arg(QDir::toNativeSeparators(ownFolder)),
        this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    m_list->setAccessibleName(windowTitle());
    m_list->setToolTip(tr("Folders whose recordings stand in the logbook; folders in them are not read"));
    m_list->setMinimumSize(scaled(foldersSize.width()), scaled(foldersSize.height()));
    const QStringList names = withMnemonics({tr("Add..."), tr("Remove")});
    auto *adding = new QPushButton(names[0], this);
    m_remove->setText(names[1]);
    adding->setToolTip(tr("Reads another folder, too."));
    m_remove->setToolTip(tr("The folder is read no longer. Its recordings stay in the logbook."));
    for (QPushButton *button : {adding, m_remove})
        button->setAutoDefault(false); // Return is OK, after a folder was added, too
    auto *side = new QVBoxLayout;
    side->addWidget(adding);
    side->addWidget(m_remove);
    side->addStretch();
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_list);
    middle->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(middle);
    layout->addWidget(createDialogButtons(this, tr("Reads these folders."), tr("Changes nothing.")));
    connect(adding, SIGNAL(clicked()), this, SLOT(onAdd()));
    connect(m_remove, SIGNAL(clicked()), this, SLOT(onRemove()));
    connect(m_list, SIGNAL(itemSelectionChanged()), this, SLOT(refresh()));
    for (const QString &folder : folders)
        add(folder);
    refresh();
}

QStringList FoldersDialog::folders() const
{
    QStringList folders;
    for (int i = 0; i < m_list->count(); ++i)
        folders.append(QDir::fromNativeSeparators(m_list->item(i)->text()));
    return folders;
}

void FoldersDialog::add(const QString &folder)
{
    if (!folder.isEmpty() && !folders().contains(folder))
        m_list->addItem(QDir::toNativeSeparators(folder));
}

void FoldersDialog::onAdd()
{
    emit folderWanted(this);
}

void FoldersDialog::onRemove()
{
    delete m_list->takeItem(m_list->currentRow());
    refresh();
}

void FoldersDialog::refresh()
{
    m_remove->setEnabled(m_list->currentRow() >= 0);
}
