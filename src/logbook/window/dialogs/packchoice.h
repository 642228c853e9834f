#pragma once

#include <QDialog>
#include <QVector>

class Logbook;
class QListWidget;
class QListWidgetItem;

/// Asks for one of the packs, or for a new one.
class PackChoice : public QDialog {
    Q_OBJECT

public:
    static constexpr qint64 newPack = -2;

    /// What is asked, and of which packs. `first` is chosen to begin with.
    struct Question {
        QString title;
        QString text;
        QVector<qint64> packs;
        qint64 first = 0;
        bool offersNew = false;
    };

    /// `logbook` is looked at only now.
    PackChoice(const Logbook &logbook, const Question &question, QWidget *parent);

    /// An id, or newPack; LogbookPack::none where nothing is chosen.
    qint64 chosen() const;

private:
    void add(const QString &text, qint64 pack, bool isFirst);

    QListWidget *m_list;
};
