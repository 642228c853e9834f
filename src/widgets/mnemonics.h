#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

class QAction;
class QMenu;

/// `texts`, each with an '&' before a letter that no other one has, as far as there are letters: the first of
/// a word where that is free. Those that have one keep it.
QStringList withMnemonics(const QStringList &texts);

/// Gives the entries of a menu such letters while it is open; they are found in any language, and however the
/// entries are named meanwhile.
class MenuMnemonics : public QObject {
    Q_OBJECT

public:
    /// A child of `menu`.
    explicit MenuMnemonics(QMenu *menu);

private slots:
    void give();
    void takeBack();

private:
    struct Text {
        QString before, given;
    };

    QMenu *m_menu;
    QHash<QAction *, Text> m_texts; // while it is open
};
