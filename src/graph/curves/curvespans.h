#pragma once

#include <QLine>
#include <QRect>
#include <QVector>

class PlotSeries;
class QPainter;
class QwtScaleMap;
class TimeColumns;

/// The picture of a curve with many samples a pixel column: one vertical span a column, and lines where a
/// span does not tell all. Covers the same pixels as lines through all samples, each rounded to its pixel.
class CurveSpans {
public:
    /// What the spans are made of: the values with the columns of their times.
    struct Source {
        const PlotSeries &values;
        int first; ///< samples before it don't belong to the curve
        const TimeColumns &columns;
        const QwtScaleMap &valueMap;
    };

    /// Finds the spans inside `area` of a curve of `width` pixels, 1 or 2.
    void assign(const Source &source, const QRect &area, int width);
    /// The same for the same curve after its columns were extended: looks at what is new.
    void extend(const Source &source, const QRect &area);
    /// Draws in `painter`'s pen, inside its clip, and leaves it another pen and brush.
    void draw(QPainter *painter) const;
    const QVector<QRect> &spans() const { return m_spans; }
    const QVector<QLine> &lines() const { return m_lines; }

private:
    /// The samples `begin`..`end` - 1 and the rows that they cover, in pixels.
    struct Column {
        int x, top, bottom, begin, end;

        bool holds(int y) const { return y >= top && y <= bottom; }
    };

    /// What stood before the last column, which may still grow.
    struct Start {
        size_t stretch = 0;
        bool hasColumn = false;
        Column column = {0, 0, 0, 0, 0}; ///< not among the spans yet
        int spans = 0, lines = 0;
        QRect lastSpan;
    };

    static Column columnAt(const Source &source, int x, int begin, int end);
    bool isJoined(const Column &column, const Column &next) const;
    void join(const Source &source, Column *column, const Column &next);
    void addSpan(const Column &column, const QRect &area);
    void removeOverdraw(const QRect &area);

    int m_width = 1;
    Start m_start;
    QVector<QRect> m_spans;
    QVector<QLine> m_lines;
};
