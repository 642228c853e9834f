#pragma once

#include "graph/curvespans.h"

#include <QPolygonF>

/// The points of a curve with many samples a pixel column, for devices finer than the picture's pixels: of each half
/// column the first, lowest, highest and last sample. Drawn as a line it looks like one through all samples.
/// `source`'s columns are not used.
QPolygonF curveOutline(const CurveSpans::Source &source, int count, const QRect &area);
