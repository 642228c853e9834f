#pragma once

#include "graph/scene/graphzoom.h"

#include <QRect>
#include <QVector>

#include <qwt_scale_map.h>

/// Where everything of a graph lies, in pixels from its top left corner. A value that follows from the size
/// of the picture and the number of records alone.
class GraphLayout {
public:
    GraphLayout(const QSize &size, int recordCount);

    int width() const { return m_size.width(); }
    int height() const { return m_size.height(); }
    int plotLeft() const { return 40; }
    int plotTop() const { return 22; }
    int plotRight() const { return width() - 1 - 99; }
    int plotBottom() const { return height() - 1 - 24; } ///< height of the time axis
    /// A plot area, edges included.
    QRect area(PlotArea area) const;
    /// There is room for plots.
    bool isDrawable() const;
    /// Divisions of the value axes; each is 20 px high or more where there is room.
    int valueSteps() const;
    /// Heights of the value divisions, from the bottom up: valueSteps() + 1.
    QVector<int> valueHeights(PlotArea area) const;
    /// Divisions of the time axis while all of a recording is shown; 0 with a single record.
    int majorTicks() const;
    /// Most divisions of the time axis while a part is shown.
    int zoomedMajorTicks() const;
    double pixelsPerRecord() const;

    /// Maps the times `from`..`to` (s) to the plots' columns; an empty range counts as a second.
    QwtScaleMap timeMap(double from, double to) const;
    /// Maps the values `low`..`high` to the heights of `area`.
    QwtScaleMap valueMap(PlotArea area, double low, double high) const;

    /// The column of names and values at the right edge.
    QRect legend() const;
    /// The part of the legend beside `area`.
    QRect legend(PlotArea area) const;

    /// The factor by which a picture of `size` px is enlarged so that its letters follow the user's font:
    /// `wanted`, or less where that would leave its plots no room. 1 at least.
    static double fittingScale(const QSize &size, double wanted);

private:
    int half() const { return (height() - 22) / 2; } // lower edge of the upper area

    QSize m_size;
    int m_recordCount;
};
