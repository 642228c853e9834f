#pragma once

class QDialog;
class QDialogButtonBox;
class QString;

/// OK and Cancel with tips, which accept and reject `dialog`.
QDialogButtonBox *createDialogButtons(QDialog *dialog, const QString &okTip, const QString &cancelTip);
