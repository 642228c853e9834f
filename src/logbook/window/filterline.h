#pragma once

#include "logbook/logbookfilter.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QHBoxLayout;
class QLineEdit;

/// The line above the recordings that says which of them are shown. Answers as one types. Where there is no
/// room for all of it the days stand in a second line.
class FilterLine : public QWidget {
    Q_OBJECT

public:
    explicit FilterLine(QWidget *parent = nullptr);

    /// What is asked for; its pack is not looked at.
    LogbookFilter filter() const;
    bool isEmpty() const; ///< everything passes

public slots:
    void clear();
    void takeKeyboard();

signals:
    void changed();

protected:
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void onText();
    void onChanged();

private:
    void placeDays();
    void fillBoxes();
    QDateEdit *createDate(QCheckBox *box, const QDate &date, const QString &tip);

    QHBoxLayout *m_line;
    QHBoxLayout *m_days; // the second line, empty while there is room in the first one
    QHBoxLayout *m_place = nullptr; // of the days: one of the two
    QLineEdit *m_text;
    QComboBox *m_chemistry;
    QComboBox *m_process;
    QCheckBox *m_fromBox;
    QDateEdit *m_from;
    QCheckBox *m_toBox;
    QDateEdit *m_to;
    bool m_isClearing = false;
};
