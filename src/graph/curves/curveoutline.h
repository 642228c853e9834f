#pragma once

#include <QPolygonF>

class QRect;
class QwtScaleMap;
class SeriesStore;

/// The points of curve `series` of `store`, from sample `first` on, with many samples a pixel column, for
/// devices finer than the picture's pixels: of each half column of `area` the first, lowest, highest and last
/// sample. Drawn as a line it looks like one through all samples.
QPolygonF curveOutline(const SeriesStore &store, int series, int first, const QwtScaleMap &timeMap,
    const QwtScaleMap &valueMap, const QRect &area);
