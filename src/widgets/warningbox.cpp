#include "widgets/warningbox.h"

#include <QMessageBox>

void showWarningBox(QWidget *parent, const char *objectName, const QString &title, const QString &text,
    const QString &details)
{
    auto *box = new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->setObjectName(QLatin1String(objectName));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    if (!details.isEmpty())
        box->setDetailedText(details);
    box->show();
}
