#include "overlay/scene/overlaylayout.h"

#include "series/interval.h"

#include <algorithm>

namespace {

constexpr int plotLeft = 56; // px, of the plot
constexpr int below = 26;
constexpr int gap = 10; // between plot and legend
constexpr int narrowestLegend = 110;
constexpr int widestLegend = 270;
constexpr int highestRow = 32; // two lines

QwtScaleMap mapOf(const Interval &shown, double from, double to)
{
    QwtScaleMap map;
    map.setScaleInterval(shown.low, shown.high > shown.low ? shown.high : shown.low + 1);
    map.setPaintInterval(from, to);
    return map;
}

} // namespace

OverlayLayout::OverlayLayout(const QSize &size, int entries)
    : m_size(size)
    , m_entries(entries)
{
}

int OverlayLayout::legendWidth() const
{
    return std::clamp(m_size.width() * 3 / 10, narrowestLegend, widestLegend);
}

QRect OverlayLayout::plot() const
{
    return {QPoint(plotLeft, top()),
        QPoint(m_size.width() - 1 - legendWidth() - gap, m_size.height() - 1 - below)};
}

QRect OverlayLayout::row(int entry) const
{
    const int height = std::min(highestRow, (m_size.height() - top()) / std::max(1, m_entries));
    return {m_size.width() - legendWidth(), top() + entry * height, legendWidth() - 2, height};
}

std::optional<int> OverlayLayout::entryAt(const QPoint &position) const
{
    for (int entry = 0; entry < m_entries; ++entry)
        if (row(entry).contains(position))
            return entry;
    return std::nullopt;
}

QwtScaleMap OverlayLayout::columns(const Interval &places) const
{
    return mapOf(places, plot().left(), plot().right());
}

QwtScaleMap OverlayLayout::heights(const Interval &values) const
{
    return mapOf(values, plot().bottom(), plot().top());
}
