#pragma once

#include "graph/curves/curvespans.h"
#include "series/seriesstore.h"
#include "graph/curves/timecolumns.h"

#include <QPen>

#include <qwt_scale_map.h>

#include <array>
#include <memory>

/// Draws curves of a store at a cost that hardly depends on their length: a pixel column with many samples
/// gets one span, and what was found is kept as long as neither map nor data change.
class CurvePainter {
public:
    /// One curve to be drawn.
    struct Job {
        const SeriesStore *store;
        int series; ///< SeriesStore::Kind
        int first; ///< first sample of the curve
        QwtScaleMap timeMap;
        QwtScaleMap valueMap;
        QRect area; ///< nothing is painted outside
        QPen pen; ///< 1 or 2 px wide; its style tells the dashes
        qreal dashUnit = 1.0; ///< px, length of a dot
    };

    CurvePainter();
    ~CurvePainter();
    CurvePainter &operator=(CurvePainter &&other) noexcept;

    void draw(QPainter *painter, const Job &job);

private:
    struct Key {
        const SeriesStore *store = nullptr;
        quint64 appendedTo = 0;
        int size = 0; ///< samples
        std::array<double, 14> numbers = {}; ///< all else that it is found from

        bool isOf(const Key &other) const; ///< but for samples that one of them lacks
        bool operator==(const Key &other) const { return isOf(other) && size == other.size; }
    };
    struct Line;
    struct Found {
        Key key;
        CurveSpans spans;
    };

    static Key columnsKey(const Job &job);
    static Key spansKey(const Job &job);
    static bool isGrown(const Job &job, const Key &before, const Key &now);
    void updateColumns(const Job &job);
    bool isSparse(const Job &job) const;
    const CurveSpans &spansOf(const Job &job);
    void drawLines(QPainter *painter, const Job &job);
    void drawDashes(QPainter *painter, const Job &job);
    QVector<QPointF> samplesOf(const Job &job) const;
    void drawMoment(QPainter *painter, const Job &job) const;

    Key m_columnsKey;
    TimeColumns m_columns;
    Found m_found[SeriesStore::kindCount];
    std::unique_ptr<Line[]> m_lines; // used again and again
};
