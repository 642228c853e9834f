#include "series/plotseries.h"

#include "series/derivedpoints.h"
#include "series/extremes.h"

#include <algorithm>

PlotSeries::PlotSeries(const RecordList &records, const DerivedPoints &points, int kind)
    : m_records(&records)
    , m_points(&points)
    , m_kind(kind)
    , m_size(points.size(kind))
    , m_figure(SeriesFigure::of(kind))
{
}

NarrowNumbers PlotSeries::figures(int block) const
{
    return isKept() ? m_points->kept().figures(m_kind, block) : m_records->numbers(m_figure.column, block);
}

double PlotSeries::operator[](int index) const
{
    const int block = index / blockSize;
    if (m_kind == SeriesKinds::Dv)
        return m_points->kept().slopes(block)[index % blockSize];
    if (!isOfCells())
        return figures(block)[index % blockSize] / m_figure.unit;
    const int heard = CellPoints::heardAt(*m_records, index, m_points->kept().heardBefore(block));
    return CellPoints::pointOf(*m_records, m_kind, heard);
}

void PlotSeries::copy(int begin, int count, double *points) const
{
    for (const int end = begin + count; begin < end;) {
        const int some = qMin(end - begin, blockSize - begin % blockSize);
        copyPiece(begin, some, points);
        begin += some;
        points += some;
    }
}

// Within a block.
void PlotSeries::copyPiece(int begin, int count, double *points) const
{
    const int block = begin / blockSize;
    if (isOfCells()) {
        CellPoints::copy(*m_records, m_kind, begin, count, m_points->kept().heardBefore(block), points);
    } else if (m_kind == SeriesKinds::Dv) {
        std::copy_n(m_points->kept().slopes(block) + begin % blockSize, count, points);
    } else {
        int numbers[blockSize];
        figures(block).copy(begin % blockSize, count, numbers);
        for (int i = 0; i < count; ++i)
            points[i] = numbers[i] / m_figure.unit;
    }
}

// By each of a block's records.
bool PlotSeries::areCellsTold(int block) const
{
    const NarrowNumbers flags = m_records->numbers(RecordColumns::Flag5, block);
    return flags.width == 0 && flags.low == 'B';
}

Interval PlotSeries::extremesInBlock(int begin, int end) const
{
    const int block = begin / blockSize;
    const int first = begin % blockSize;
    if (m_kind == SeriesKinds::Dv)
        return extremesOf(m_points->kept().slopes(block), first, first + end - begin);
    if (!isOfCells() || (m_kind != SeriesKinds::CellDelta && areCellsTold(block))) {
        const NarrowNumbers::Range range = figures(block).extremes(first, first + end - begin);
        return {range.low / m_figure.unit, range.high / m_figure.unit};
    }
    double points[blockSize];
    copyPiece(begin, end - begin, points);
    return extremesOf(points, 0, end - begin);
}

Interval PlotSeries::extremes(int begin, int end) const
{
    const auto pieceEnd = [end](int from) { return qMin(end, (from / blockSize + 1) * blockSize); };
    const auto piece = [this](int from, int to) {
        const int block = from / blockSize;
        return to - from == blockSize && block < m_points->kept().blocks()
            ? m_points->blockExtremes(*m_records, m_kind, block)
            : extremesInBlock(from, to);
    };
    Interval found = piece(begin, pieceEnd(begin));
    for (int from = pieceEnd(begin); from < end; from = pieceEnd(from))
        found.take(piece(from, pieceEnd(from)));
    return found;
}

Interval PlotSeries::wholeRange() const
{
    if (isEmpty())
        return {0.0, 0.0};
    const int whole = m_points->kept().blocks();
    Interval found = extremes(whole * blockSize, m_size);
    if (whole > 0)
        found.take(m_points->wholeBlocks(m_kind));
    return found;
}
