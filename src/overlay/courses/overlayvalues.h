#pragma once

#include "series/serieskinds.h"

/// What recordings are compared by when they lie over each other.
enum class OverlayValue {
    PackVoltage,
    MeanCell,
    HighestCell,
    LowestCell,
    Spread,
    Current,
    Temperature,
    Resistance,
    Count
};
/// What they lie along: time in seconds, or charge in mAh.
enum class OverlayAxis { Time, Charge };

/// How a value is drawn and told.
struct OverlayScale {
    int series; ///< SeriesStore::Kind
    const char *name; ///< to be translated in the context "Overlay"
    const char *unit; ///< the same; that its figures are told in
    double factor; ///< from the series' unit to `unit`
    int decimals; ///< of a figure
};
const OverlayScale &overlayScale(OverlayValue value);
