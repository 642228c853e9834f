#include "logbook/window/dialogs/packdialog.h"

#include "logbook/window/dialogs/dialogbuttons.h"
#include "widgets/displayscale.h"
#include "widgets/mnemonics.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {

constexpr int largestCapacity = 1000000; // mAh
constexpr int capacityStep = 100;
constexpr int longestName = 200;
constexpr int noteHeight = 70; // px

} // namespace

PackDialog::PackDialog(const QString &title, const LogbookPack &pack, QWidget *parent)
    : QDialog(parent)
    , m_pack(pack)
    , m_form(new QFormLayout(this))
    , m_name(new QLineEdit(pack.name, this))
    , m_chemistry(new QComboBox(this))
    , m_cells(new QSpinBox(this))
    , m_capacity(new QSpinBox(this))
    , m_note(new QPlainTextEdit(pack.note, this))
    , m_buttons(
          createDialogButtons(this, tr("Keeps what stands here. It can be undone."), tr("Changes nothing.")))
{
    setWindowTitle(title);
    m_name->setObjectName(QStringLiteral("packName"));
    m_name->setMaxLength(longestName);
    m_name->setToolTip(tr("What the pack is called; write it on the pack, too."));
    m_chemistry->setToolTip(tr("Kind of the cells"));
    for (int type = 0; type <= Varnel3Data::noCellType; ++type)
        m_chemistry->addItem(
            type < Varnel3Data::noCellType ? Varnel3Data::cellTypeName(type) : tr("not said"), type);
    m_chemistry->setCurrentIndex(m_chemistry->findData(pack.cellType));
    m_cells->setRange(0, Varnel3Data::maxCells);
    m_cells->setSpecialValueText(tr("not said"));
    m_cells->setToolTip(tr("Number of cells in series"));
    m_cells->setValue(pack.cells);
    m_capacity->setObjectName(QStringLiteral("packCapacity"));
    m_capacity->setRange(0, largestCapacity);
    m_capacity->setSingleStep(capacityStep);
    m_capacity->setSuffix(QStringLiteral(" mAh"));
    m_capacity->setSpecialValueText(tr("not said"));
    m_capacity->setToolTip(tr("As printed on the pack: the state of health is reckoned from it."));
    m_capacity->setValue(pack.capacity);
    m_note->setToolTip(tr("Your own words: maker, bought when, used for what"));
    m_note->setTabChangesFocus(true);
    m_note->setFixedHeight(scaled(noteHeight));

    for (QSpinBox *box : {m_cells, m_capacity})
        box->installEventFilter(this);
    const QStringList labels
        = withMnemonics({tr("Name:"), tr("Chemistry:"), tr("Cells:"), tr("Nominal capacity:"), tr("Note:")});
    int row = 0;
    for (QWidget *field : fields())
        m_form->addRow(labels[row++], field);
    m_form->addRow(m_buttons);
    connect(m_name, SIGNAL(textChanged(QString)), this, SLOT(onNameChanged(QString)));
    onNameChanged(m_name->text());
    m_name->selectAll();
}

// From top to bottom.
std::array<QWidget *, 5> PackDialog::fields() const
{
    return {m_name, m_chemistry, m_cells, m_capacity, m_note};
}

void PackDialog::showNameOnly(const QString &text)
{
    for (QWidget *field : fields()) {
        m_form->labelForField(field)->setVisible(field == m_name);
        field->setVisible(field == m_name);
    }
    m_form->insertRow(0, new QLabel(text, this));
}

LogbookPack PackDialog::pack() const
{
    LogbookPack pack = m_pack;
    pack.name = m_name->text().trimmed();
    pack.cellType = m_chemistry->currentData().toInt();
    pack.cells = m_cells->value();
    pack.capacity = m_capacity->value();
    pack.note = m_note->toPlainText().left(LogbookPack::longestNote);
    return pack;
}

// A click puts the cursor into "not said", which takes no digit. It comes after the focus.
bool PackDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(watched, "selectAll", Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

void PackDialog::onNameChanged(const QString &name)
{
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!name.trimmed().isEmpty());
}
