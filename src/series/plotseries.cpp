#include "series/plotseries.h"

#include "series/derivedpoints.h"
#include "series/extremes.h"

#include <algorithm>

PlotSeries::PlotSeries(const RecordList &records, const DerivedPoints &points, int kind)
    : m_records(&records)
    , m_points(&points)
    , m_kind(kind)
    , m_size(points.size(kind))
    , m_packed(points.kept().blocks() * blockSize)
    , m_figure(SeriesFigure::of(kind))
{
}

NarrowNumbers PlotSeries::figures(int block) const
{
    return isKept() ? m_points->kept().figures(m_kind, block) : m_records->numbers(m_figure.column, block);
}

PlotSeries::Block PlotSeries::lookAt(int index) const
{
    const bool isPlain = m_kind != SeriesKinds::Dv && m_kind != SeriesKinds::CellDelta
        && (!isOfCells() || areCellsTold(index));
    return {index, isPlain, m_kind == SeriesKinds::Dv ? NarrowNumbers() : figures(index)};
}

const Interval &PlotSeries::extremesAround(int index) const
{
    return m_points->stepExtremes(m_kind, index / step);
}

// Of whole steps.
Interval PlotSeries::wholeExtremes(int begin, int end) const
{
    return m_points->stepsExtremes(m_kind, begin, end);
}

double PlotSeries::operator[](int index) const
{
    const Block &block = blockAt(index / blockSize);
    if (block.isPlain)
        return block.numbers[index % blockSize] / m_figure.unit;
    if (m_kind == SeriesKinds::Dv)
        return m_points->kept().slopes(block.index)[index % blockSize];
    const int heard = CellPoints::heardAt(*m_records, index, m_points->kept().heardBefore(block.index));
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
    if (m_points->areCellsTold() && block * blockSize < m_packed)
        return true;
    const NarrowNumbers flags = m_records->numbers(RecordColumns::Flag5, block);
    return flags.width == 0 && flags.low == 'B';
}

Interval PlotSeries::extremesInBlock(int begin, int end) const
{
    const Block &block = blockAt(begin / blockSize);
    const int first = begin % blockSize;
    if (block.isPlain) {
        const NarrowNumbers::Range range = block.numbers.extremes(first, first + end - begin);
        return {range.low / m_figure.unit, range.high / m_figure.unit};
    }
    if (m_kind == SeriesKinds::Dv)
        return extremesOf(m_points->kept().slopes(block.index), first, first + end - begin);
    double points[blockSize];
    copyPiece(begin, end - begin, points);
    return extremesOf(points, 0, end - begin);
}

Interval PlotSeries::extremes(int begin, int end) const
{
    const double point = (*this)[begin];
    Interval found = {point, point};
    tellExtremes(
        begin, end,
        [&](const Interval &range) { return found.contains(range.low) && found.contains(range.high); },
        [&](const Interval &range) { found.take(range); });
    return found;
}

Interval PlotSeries::wholeRange() const
{
    if (isEmpty())
        return {0.0, 0.0};
    Interval found = extremes(m_packed, m_size);
    if (m_packed > 0)
        found.take(wholeExtremes(0, m_packed / step));
    return found;
}
