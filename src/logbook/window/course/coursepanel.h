#pragma once

#include "logbook/window/course/packcourse.h"

#include <QWidget>

class CourseCanvas;
class Logbook;
class QComboBox;
class QLabel;

/// How the chosen pack fares, or all of them: what is drawn is chosen above the chart.
class CoursePanel : public QWidget {
    Q_OBJECT

public:
    /// `logbook` outlives this.
    explicit CoursePanel(const Logbook *logbook, QWidget *parent = nullptr);

    /// As LogbookFilter::pack has it.
    void setPack(qint64 pack);
    void setGround(bool black, bool distinct);
    void mark(qint64 recording);
    /// Asks the logbook anew.
    void refresh();

    CourseChart chart() const;
    QString title() const; ///< of the picture: which pack, and what is shown of it
    QSize pictureSize() const;
    int quantity() const; ///< to be kept, as the next one
    bool isByDate() const;
    void choose(int quantity, bool byDate);

public slots:
    /// Prints the chart through the print dialog.
    void print();

signals:
    /// The user has chosen a point of this recording.
    void chosen(qint64 recording);

private slots:
    void onChoice();

private:
    CourseChart chartOn(bool black) const;
    QString headline() const;
    QString pointText(const CourseLine &line, const CoursePoint &point) const;

    const Logbook *m_logbook;
    qint64 m_pack;
    QString m_title; ///< which pack, and how it fares
    bool m_black = true;
    bool m_distinct = false;
    QLabel *m_headline;
    QComboBox *m_quantity;
    QComboBox *m_axis;
    CourseCanvas *m_canvas;
};
