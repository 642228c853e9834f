#include "logbook/window/dialogs/dialogbuttons.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

QDialogButtonBox *createDialogButtons(QDialog *dialog, const QString &okTip, const QString &cancelTip)
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    buttons->button(QDialogButtonBox::Ok)->setToolTip(okTip);
    buttons->button(QDialogButtonBox::Cancel)->setToolTip(cancelTip);
    QObject::connect(buttons, SIGNAL(accepted()), dialog, SLOT(accept()));
    QObject::connect(buttons, SIGNAL(rejected()), dialog, SLOT(reject()));
    return buttons;
}
