#pragma once

#include "data/recordlist.h"
#include "series/interval.h"
#include "series/seriesfigures.h"

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
    /// Index of the first point from `from` on that is not isBefore(point), of which all before it are; size()
    /// without any.
    template <typename IsBefore>
    int firstNot(int from, const IsBefore &isBefore) const
    {
        for (int count = m_size - from; count > 0;) {
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
    /// The lowest and the highest of the points `begin`..`end` - 1, of which there is at least one; looks at
    /// less than two blocks of them and at one pair for each block between.
    Interval extremes(int begin, int end) const;
    static constexpr int blockSize = RecordList::blockSize;

private:
    bool isOfCells() const { return m_kind >= SeriesKinds::CellMin; }
    bool isKept() const { return m_kind == SeriesKinds::Temperature || m_kind == SeriesKinds::Resistance; }
    NarrowNumbers figures(int block) const;
    void copyPiece(int begin, int count, double *points) const;
    bool areCellsTold(int block) const;
    Interval extremesInBlock(int begin, int end) const;
    Interval wholeRange() const;

    const RecordList *m_records; // not owned
    const DerivedPoints *m_points; // not owned
    int m_kind;
    int m_size;
    SeriesFigure m_figure;
};
