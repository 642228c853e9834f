#pragma once

#include "series/interval.h"

#include <QColor>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QVector>

class QPainter;
class QSize;

/// One recording in the course of a pack.
struct CoursePoint {
    double at = 0; ///< s since 1970 UTC, or number of the cycle
    double value = 0;
    qint64 recording = 0;
    bool partial = false; ///< does not tell what the pack holds: drawn hollow, and not joined
};

/// Points that belong together, in the order of `at`.
struct CourseLine {
    enum Marker { Disc, Square, Triangle, Diamond, markerCount };

    QString name;
    QColor colour;
    Marker marker = Disc;
    Qt::PenStyle style = Qt::SolidLine;
    QVector<CoursePoint> points;
};

/// How packs fare over months, as a picture: lines of points over date or cycle.
class CourseChart {
public:
    /// Index of a line and of a point in it, -1 for none.
    struct Hit {
        int line = -1;
        int point = -1;

        bool isNone() const { return line < 0; }
    };

    QVector<CourseLine> lines;
    QString unit; ///< of the values
    bool byDate = true;
    double reference = 0; ///< a line across, such as the nominal capacity; 0 for none
    QString referenceName;
    bool inPercent = false; ///< an axis on the right has `reference`, of which there is one then, as 100 %
    QString emptyText; ///< what stands there while there is no point
    qint64 marked = 0; ///< recording with a ring round it
    bool blackGround = true;
    qreal scale = 1.0; ///< enlarges all fixed sizes

    /// Where values and times lie in a picture.
    struct Mapping {
        QRect area; ///< that the points lie in
        Interval values; ///< from its bottom to its top
        Interval times; ///< or cycles, from left to right

        double x(double at) const { return area.left() + times.shareOf(at) * area.width(); }
        double y(double value) const { return area.bottom() - values.shareOf(value) * area.height(); }
        QPointF place(const CoursePoint &point) const { return {x(point.at), y(point.value)}; }
    };

    bool isEmpty() const;
    Mapping mapping(const QSize &size) const;
    /// The nearest point within some pixels of `place`.
    Hit hit(const QPointF &place, const QSize &size) const;

    /// Draws into (0, 0, `size`), its ground included.
    void paint(QPainter &painter, const QSize &size) const;

private:
    bool hasReference() const { return reference > 0; }
    int px(double pixels) const { return qRound(pixels * scale); }
    Interval valueRange() const;
    Interval timeRange() const;
    void paintValues(QPainter &painter, const Mapping &map) const;
    void paintPercent(QPainter &painter, const Mapping &map) const;
    void paintTimes(QPainter &painter, const Mapping &map) const;
    void paintReference(QPainter &painter, const Mapping &map) const;
    bool isCovered(const QRect &box, const Mapping &map) const;
    void paintLine(QPainter &painter, const CourseLine &line, const Mapping &map) const;
    void paintMarker(
        QPainter &painter, const CourseLine &line, const CoursePoint &point, const QPointF &at) const;
    void paintLegend(QPainter &painter, const Mapping &map) const;
    QString timeText(double at) const;
};

/// Starts of days, weeks, months, quarters or years (s since 1970, local time) that divide it into `most`
/// pieces or fewer.
QVector<double> dateTicks(const Interval &range, int most);
