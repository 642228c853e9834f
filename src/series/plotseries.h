#pragma once

#include "data/records/recordlist.h"
#include "series/extremespyramid.h"
#include "series/seriesfigures.h"

#include <limits>

class DerivedPoints;

/// A view on one plot series: a point for each record, made from the record's figures when it is asked for,
/// and from what DerivedPoints keeps where a point needs the records before it too. Valid until the store
/// that gave it is changed or moved.
class PlotSeries {
public:
    PlotSeries(const RecordList &records, const DerivedPoints &points, int kind);

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    double operator[](int index) const;
    double last() const { return (*this)[m_size - 1]; }
    /// Writes the points `begin`..`begin` + `count` - 1, faster than one by one.
    void copy(int begin, int count, double *points) const;
    /// Calls take(begin, points, count) for one piece of begin..end - 1 after the other.
    template <typename Take>
    void eachPiece(int begin, int end, const Take &take) const
    {
        double points[blockSize];
        while (begin < end) {
            const int count = qMin(end - begin, blockSize - begin % blockSize);
            copy(begin, count, points);
            take(begin, points, count);
            begin += count;
        }
    }
    /// Index of the first point from `from` on that is not isBefore(point), of which all before it are;
    /// size() without any. Found soonest if it is one of the next `likely` points, at least one.
    template <typename IsBefore>
    int firstNot(int from, const IsBefore &isBefore, int likely = std::numeric_limits<int>::max()) const
    {
        int count = m_size - from;
        for (; likely < count && isBefore((*this)[from + likely]); likely += qMin(likely, count - likely)) {
            from += likely + 1;
            count -= likely + 1;
        }
        for (count = qMin(count, likely); count > 0;) {
            const int half = count / 2;
            const bool goesOn = isBefore((*this)[from + half]);
            from += goesOn ? half + 1 : 0;
            count = goesOn ? count - half - 1 : half;
        }
        return from;
    }

    /// Extremes of all points; 0 without any.
    double minimum() const { return wholeRange().low; }
    double maximum() const { return wholeRange().high; }
    /// The lowest and the highest of the points `begin`..`end` - 1, of which there is at least one.
    Interval extremes(int begin, int end) const;
    /// Calls take(extremes) of parts of these points until all are told; but not of a part that lies in a
    /// step whose extremes are isKnown(), be it from what was taken. Looks at less than two steps, and hardly
    /// longer for more between them.
    template <typename IsKnown, typename Take>
    void tellExtremes(int begin, int end, const IsKnown &isKnown, const Take &take) const
    {
        const int firstWhole = (begin + step - 1) / step;
        const int endWhole = qMin(end, m_packed) / step;
        const bool hasWhole = firstWhole < endWhole;
        if (hasWhole)
            take(wholeExtremes(firstWhole, endWhole));
        const int middle = qMin((begin / step + 1) * step, end);
        const int headEnd = hasWhole ? firstWhole * step : middle;
        const int tailBegin = hasWhole ? endWhole * step : middle;
        const bool isHeadLonger = headEnd - begin >= end - tailBegin; // which often tells the other, too
        if (isHeadLonger)
            tellPart(begin, headEnd, isKnown, take);
        tellPart(tailBegin, end, isKnown, take);
        if (!isHeadLonger)
            tellPart(begin, headEnd, isKnown, take);
    }
    static constexpr int blockSize = RecordList::blockSize;
    static constexpr int step = ExtremesPyramid::step; ///< points whose extremes are kept

private:
    /// The same of points that lie in one step, or are the newest.
    template <typename IsKnown, typename Take>
    void tellPart(int begin, int end, const IsKnown &isKnown, const Take &take) const
    {
        constexpr int few = 32; // lie side by side in memory
        while (begin < end && !(begin < m_packed && isKnown(extremesAround(begin)))) {
            const int next = blockAt(begin / blockSize).isPlain ? qMin(begin + few, end) : end;
            take(extremesInBlock(begin, next));
            begin = next;
        }
    }

    bool isOfCells() const { return m_kind >= SeriesKinds::CellMin; }
    bool isKept() const { return m_kind == SeriesKinds::Temperature || m_kind == SeriesKinds::Resistance; }
    /// What a look at a block takes, which the next look mostly takes again.
    struct Block {
        int index = -1;
        bool isPlain = false; ///< each point is a number by the unit
        NarrowNumbers numbers;
    };

    const Block &blockAt(int index) const
    {
        Block &block = m_looks[index % looks];
        if (block.index != index)
            block = lookAt(index);
        return block;
    }
    Block lookAt(int index) const;
    /// Those of all points of a step whose extremes are kept.
    const Interval &extremesAround(int index) const;
    Interval wholeExtremes(int begin, int end) const;
    NarrowNumbers figures(int block) const;
    void copyPiece(int begin, int count, double *points) const;
    bool areCellsTold(int block) const;
    Interval extremesInBlock(int begin, int end) const;
    Interval wholeRange() const;

    const RecordList *m_records; // not owned
    const DerivedPoints *m_points; // not owned
    int m_kind;
    int m_size;
    int m_packed; // points that don't change any more, whose extremes are kept by steps
    SeriesFigure m_figure;
    static constexpr int looks = 4; // neighbouring columns of a picture share their blocks
    mutable Block m_looks[looks];
};
