#pragma once

#include "logbook/window/course/coursechart.h"
#include "widgets/spoken.h"

#include <QWidget>

#include <functional>

/// Shows the course of packs. Pointing at a point names its recording, a click or the Enter key selects it;
/// the arrow keys go from point to point.
class CourseCanvas : public QWidget, public Spoken {
    Q_OBJECT

public:
    /// What a point tells: its recording and its value.
    using Namer = std::function<QString(const CourseLine &line, const CoursePoint &point)>;

    explicit CourseCanvas(QWidget *parent = nullptr);

    const CourseChart &chart() const { return m_chart; }
    void setChart(const CourseChart &chart);
    void setNamer(Namer namer) { m_namer = std::move(namer); }
    /// What stands above the lines for whoever does not see them.
    void setTitle(const QString &title) { m_title = title; }
    /// Rings the points of this recording; 0 for none.
    void mark(qint64 recording);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QString spokenText() const override; ///< title, and each line from its first to its last value

signals:
    /// The user has chosen a point of this recording.
    void chosen(qint64 recording);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString textOf(CourseChart::Hit hit) const;
    const CoursePoint &pointAt(CourseChart::Hit hit) const;
    CourseChart::Hit markedPoint() const;
    CourseChart::Hit neighbour(int direction) const;

    CourseChart m_chart;
    Namer m_namer;
    QString m_title;
};
