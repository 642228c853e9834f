#include "widgets/warningbox.h"

QMessageBox *createNotice(QWidget *parent, const char *objectName, QMessageBox::Icon icon,
    const QString &title, const QString &text)
{
    auto *box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setObjectName(QLatin1String(objectName));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
    return box;
}

void showWarningBox(QWidget *parent, const char *objectName, const QString &title, const QString &text,
    const QString &details)
{
    QMessageBox *box = createNotice(parent, objectName, QMessageBox::Warning, title, text);
    if (!details.isEmpty())
        box->setDetailedText(details);
    box->show();
}
