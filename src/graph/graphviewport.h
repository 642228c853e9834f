#pragma once

#include "graph/scene/graphlayout.h"

#include <optional>

class SeriesStore;

/// The window through which a recording is seen: its size in pixels, the zoom, and what lies under a pixel.
class GraphViewport {
public:
    static constexpr int none = -1; ///< no record

    /// `store` outlives this.
    explicit GraphViewport(const SeriesStore *store);

    const GraphZoom &zoom() const { return m_zoom; }
    GraphLayout layout() const;
    /// Takes the size of the picture; a zoom's times are divided anew.
    void resize(const QSize &size);

    /// The record whose time is next to that of pixel column `x`, or of the last one right of the plots; the
    /// first of several, as where a clock was set back. `none` left of the plots and without records.
    int recordAt(int x) const;
    /// The record that lies about so many pixel columns beside `record`, on the way along the records in
    /// `direction`, 1 or -1: at least the next one, at most the last one. `columns` is more than 0.
    int recordBeside(int record, int direction, int columns) const;
    /// The record at the left end of what is shown, or at its right end.
    int firstShown() const;
    int lastShown() const;
    /// The pixel column of `record`.
    int columnOf(int record) const;
    std::optional<PlotArea> areaAt(const QPoint &position) const;

    void showAll() { m_zoom.reset(); }
    /// Shows the times under `rect`, and in `area` its values.
    void showRect(PlotArea area, const QRect &rect);
    /// Shows `factor` times less of the time, with the time under `x` staying there.
    void zoomTimes(double factor, int x);
    /// Shows `factor` times less of the values of `area`, with the value under `y` staying there.
    void zoomValues(double factor, PlotArea area, int y);
    /// Moves a zoomed picture by a number of pixels; its values in `area` only. Never past the recording.
    void moveBy(const QPoint &distance, PlotArea area);
    /// Moves a zoomed picture so that `record` is on it.
    void reveal(int record);

private:
    Interval wholeTimes() const;
    QwtScaleMap timeMap() const;
    int recordAtTime(double time) const;
    int shownNear(int record, int inwards) const;
    double shareAt(PlotArea area, int y) const;

    const SeriesStore *m_store; // not owned
    QSize m_size;
    GraphZoom m_zoom;
};
