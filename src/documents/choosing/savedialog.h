#pragma once

#include <QFileDialog>

class DataFilesModel;
class QLineEdit;

/// Asks for the name of a file to be written. Its ending says the format: a name that has none gets that of
/// the chosen one, before it is asked whether a file of that name may be replaced.
class SaveDialog : public QFileDialog {
    Q_OBJECT

public:
    /// Each of `filters` names one ending: "Picture (*.png)".
    SaveDialog(QWidget *parent, const QString &title, const QStringList &filters);

    /// Offers `name`, which has no ending.
    void suggest(const QString &name);
    /// Names with one of `endings` are not taken: a box says `reason`, and the dialog stays.
    void refuse(const QStringList &endings, const QString &reason);

protected:
    void accept() override;

private slots:
    void changeEnding(const QString &filter);

private:
    QLineEdit *nameEdit() const;
    bool hasEnding(const QString &name) const;

    DataFilesModel *m_files; // child
    QStringList m_refused;
    QString m_reason; // why those are
    QString m_ending; // of the chosen format, with its dot
};
