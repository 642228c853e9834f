#pragma once

#include <QFileDialog>

class QLineEdit;

/// Asks for the name of a file that is made for other programs. Its ending says the format: a name that
/// has none gets that of the chosen one.
class ExportDialog : public QFileDialog {
    Q_OBJECT

public:
    /// Each of `filters` names one ending: "Picture (*.png)".
    ExportDialog(QWidget *parent, const QString &title, const QStringList &filters);

    /// Offers `name`, which has no ending.
    void suggest(const QString &name);

protected:
    void accept() override;

private slots:
    void changeEnding(const QString &filter);

private:
    QLineEdit *nameEdit() const;
    bool hasEnding(const QString &name) const;

    QString m_ending; // of the chosen format, with its dot
};
