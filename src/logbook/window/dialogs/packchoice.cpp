#include "logbook/window/dialogs/packchoice.h"

#include "data/figuretext.h"
#include "logbook/logbook.h"
#include "logbook/window/dialogs/dialogbuttons.h"
#include "widgets/displayscale.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize choiceSize(340, 200); // px

QString describe(const LogbookPack &pack)
{
    QStringList parts = {pack.name};
    if (pack.cells > 0)
        parts.append(FigureText::cells(pack.cells, pack.cellType));
    if (pack.capacity > 0)
        parts.append(FigureText::fixed(pack.capacity, 0) + QStringLiteral(" mAh"));
    return parts.join(QStringLiteral(", "));
}

} // namespace

PackChoice::PackChoice(const Logbook &logbook, const Question &question, QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setWindowTitle(question.title);
    auto *label = new QLabel(question.text, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("packs"));
    m_list->setAccessibleName(question.text);
    m_list->setToolTip(question.text);
    m_list->setMinimumSize(scaled(choiceSize.width()), scaled(choiceSize.height()));
    for (const qint64 id : question.packs)
        if (const LogbookPack *pack = logbook.pack(id))
            add(describe(*pack), id, id == question.first);
    if (question.offersNew)
        add(tr("New pack..."), newPack, !m_list->currentItem());
    if (!m_list->currentItem())
        m_list->setCurrentRow(0);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(
        createDialogButtons(this, tr("Takes the chosen pack. It can be undone."), tr("Changes nothing.")));
    connect(m_list, SIGNAL(itemActivated(QListWidgetItem*)), this, SLOT(accept()));
    m_list->setFocus();
}

void PackChoice::add(const QString &text, qint64 pack, bool isFirst)
{
    auto *item = new QListWidgetItem(text, m_list);
    item->setData(Qt::UserRole, pack);
    if (isFirst)
        m_list->setCurrentItem(item);
}

qint64 PackChoice::chosen() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->data(Qt::UserRole).toLongLong() : 0;
}
