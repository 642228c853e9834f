#pragma once

#include <QRect>

#include <qwt_scale_map.h>

#include <optional>

struct Interval;

/// Where everything of an overlay lies, in pixels from its top left corner.
class OverlayLayout {
public:
    OverlayLayout(const QSize &size, int entries);

    QRect firstLine() const { return {0, 0, m_size.width(), top() - 1}; }
    QRect plot() const; ///< edges included
    bool isDrawable() const { return plot().width() > 1 && plot().height() > 1; }
    /// The row of an entry in the legend, right of the plot.
    QRect row(int entry) const;
    /// Its row holds `position`.
    std::optional<int> entryAt(const QPoint &position) const;

    /// Maps places to columns, and values to heights. An empty range counts as 1.
    QwtScaleMap columns(const Interval &places) const;
    QwtScaleMap heights(const Interval &values) const;

private:
    static int top() { return 22; }
    int legendWidth() const;

    QSize m_size;
    int m_entries;
};
