#pragma once

#include "series/serieskinds.h"

class RecordList;

/// The whole number that a point of a series is made of.
struct SeriesFigure {
    int column; ///< of the record: RecordColumns::Column, or one of a cell; -1 for one of KeptPoints
    double unit; ///< what it is divided by

    /// For every kind; of CellDelta the higher of its two.
    static SeriesFigure of(int kind);
};

/// Points of the cells, which stand still while nothing is heard of them.
namespace CellPoints {

/// Record `index`, or the last one before it of which cell data is known; `heardBefore` is that before its
/// block.
int heardAt(const RecordList &records, int index, int heardBefore);
/// The point of a series from CellMin on, of a record that has cell data.
double pointOf(const RecordList &records, int kind, int record);
/// The points of the records `begin`..`begin` + `count` - 1 of one block.
void copy(const RecordList &records, int kind, int begin, int count, int heardBefore, double *points);

} // namespace CellPoints
