#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

/// Asks which folders are read beside that of the journals.
class FoldersDialog : public QDialog {
    Q_OBJECT

public:
    FoldersDialog(const QString &ownFolder, const QStringList &folders, QWidget *parent);

    QStringList folders() const; ///< as chosen, with '/' between names

public slots:
    /// Adds a folder that the user has chosen.
    void add(const QString &folder);

signals:
    /// The user wants another: whoever knows file dialogs asks for it and calls add().
    void folderWanted(QWidget *dialog);

private slots:
    void onAdd();
    void onRemove();
    void refresh();

private:
    QListWidget *m_list;
    QPushButton *m_remove;
};
