#pragma once

#include "graph/scene/graphzoom.h"
#include "overlay/courses/overlaycourse.h"

#include <QRect>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

/// One of the recordings that lie over each other.
struct OverlayEntry {
    std::shared_ptr<const OverlayCourse> course; ///< never null
    QString label; ///< its pack, if that is known, and its date
    double shift = 0.0; ///< s that the user has moved it by
};

/// Everything that a picture of an overlay depends on, for screen, printer and file alike.
struct OverlayRequest {
    static constexpr int mostEntries = 20; ///< more can't be told apart

    QSize size; ///< px at 96 dpi; scale the painter for other densities
    double scale = 1.0; ///< everything but curves is so many times larger, where there is room
    bool black = true; ///< background
    bool distinct = false; ///< lines differ in more than hue
    QVector<OverlayEntry> entries;
    OverlayValue value = OverlayValue::PackVoltage;
    OverlayAxis axis = OverlayAxis::Time;
    bool linedUp = false; ///< at the start of current, which is where the axis has its 0
    int picked = -1; ///< the entry that stands out; -1 for none
    GraphZoom zoom; ///< its times are places on the axis; of the values those of the upper plot count
    std::optional<double> cursor; ///< its place on the axis
    std::optional<double> marked; ///< the second one's
    QRect rubberBand; ///< what is being picked, before scaling; empty for nothing

    /// What is to be added to the places of an entry.
    double offsetOf(int entry) const;
    /// The places from the first of any entry to the last; a short one without entries.
    Interval wholePlaces() const;
    Interval shownPlaces() const { return zoom.isActive() ? zoom.times() : wholePlaces(); }
    /// What the value axis covers, in the unit of the series, before any zoom.
    Interval wholeValues() const;
    Interval shownValues() const { return wholeValues().part(zoom.share(PlotArea::Upper)); }
};
