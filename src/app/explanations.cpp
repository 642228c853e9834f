#include "app/explanations.h"

#include "desk/statusfacts.h"
#include "graph/mdigraphchild.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

QStringList graphLines(const MdiGraphChild *current)
{
    if (current == nullptr)
        return {QCoreApplication::translate("Explanations", "There is no graph window.")};
    return (current->spokenText() + QLatin1Char('\n') + current->titleTip())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

void showExplanations(QWidget *window, const StatusFacts &facts, const MdiGraphChild *current)
{
    const QStringList texts = QStringList(graphLines(current).join(QLatin1Char('\n'))) + facts.explanations();
    auto *box = new QMessageBox(QMessageBox::Information,
        QCoreApplication::translate("Explanations", "Explanations"), texts.join(QStringLiteral("\n\n")),
        QMessageBox::Ok, window);
    box->setObjectName(QStringLiteral("explanations"));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
