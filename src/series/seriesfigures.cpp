#include "series/seriesfigures.h"

#include "data/records/recordlist.h"

namespace {

using Columns = RecordColumns;

constexpr double milli = 1000.0;
constexpr int length = RecordList::blockSize;

} // namespace

SeriesFigure SeriesFigure::of(int kind)
{
    // by SeriesKinds::Kind; the last one is each cell's
    static constexpr SeriesFigure figures[]
        = {{Columns::Time, 1.0}, {Columns::Voltage, milli}, {Columns::Current, milli}, {Columns::Energy, 1.0},
            {-1, 10.0}, {-1, 1.0}, {-1, 1.0}, {Columns::CellMin, milli}, {Columns::CellMax, milli},
            {Columns::CellAverage, milli}, {Columns::CellMax, milli}};
    if (kind < SeriesKinds::Cell1)
        return figures[kind];
    return {Columns::ofCell(kind - SeriesKinds::Cell1, Columns::CellVoltage), milli};
}

int CellPoints::heardAt(const RecordList &records, int index, int heardBefore)
{
    const int block = index / length;
    const NarrowNumbers flags = records.numbers(Columns::Flag5, block);
    for (int i = index % length; i >= 0; --i) {
        if (flags[i] == 'B')
            return block * length + i;
    }
    return heardBefore;
}

double CellPoints::pointOf(const RecordList &records, int kind, int record)
{
    const SeriesFigure figure = SeriesFigure::of(kind);
    const double point = records.figure(figure.column, record) / figure.unit;
    return kind == SeriesKinds::CellDelta ? point - records.figure(Columns::CellMin, record) / figure.unit
                                          : point;
}

void CellPoints::copy(
    const RecordList &records, int kind, int begin, int count, int heardBefore, double *points)
{
    const SeriesFigure figure = SeriesFigure::of(kind);
    const int block = begin / length;
    const int first = begin % length;
    int figures[length];
    int lowest[length];
    records.numbers(figure.column, block).copy(first, count, figures);
    for (int i = 0; i < count; ++i)
        points[i] = figures[i] / figure.unit;
    if (kind == SeriesKinds::CellDelta) {
        records.numbers(Columns::CellMin, block).copy(first, count, lowest);
        for (int i = 0; i < count; ++i)
            points[i] = points[i] - lowest[i] / figure.unit;
    }
    const NarrowNumbers flags = records.numbers(Columns::Flag5, block);
    if (flags.width == 0 && flags.low == 'B')
        return;
    for (int i = 0; i < count; ++i) {
        if (flags[first + i] != 'B')
            points[i] = i > 0 ? points[i - 1] : pointOf(records, kind, heardAt(records, begin, heardBefore));
    }
}
