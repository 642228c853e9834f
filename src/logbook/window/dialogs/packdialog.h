#pragma once

#include "logbook/logbookrecording.h"

#include <QDialog>

#include <array>

class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

/// Asks what the user knows of a pack. Without a name it can't be accepted.
class PackDialog : public QDialog {
    Q_OBJECT

public:
    PackDialog(const QString &title, const LogbookPack &pack, QWidget *parent);

    /// Asks for the name alone, under the line `text`.
    void showNameOnly(const QString &text);
    LogbookPack pack() const; ///< as it was handed in, with what is shown

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onNameChanged(const QString &name);

private:
    std::array<QWidget *, 5> fields() const;

    LogbookPack m_pack;
    QFormLayout *m_form;
    QLineEdit *m_name;
    QComboBox *m_chemistry;
    QSpinBox *m_cells;
    QSpinBox *m_capacity;
    QPlainTextEdit *m_note;
    QDialogButtonBox *m_buttons;
};
