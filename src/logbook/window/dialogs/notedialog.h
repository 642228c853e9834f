#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Asks for a note.
class NoteDialog : public QDialog {
    Q_OBJECT

public:
    /// `of`: what it is a note on.
    NoteDialog(const QString &of, const QString &note, QWidget *parent);

    QString note() const;

private:
    QPlainTextEdit *m_note;
};
