#include "graph/scene/graphlayout.h"

namespace {

constexpr int areaGap = 15;
constexpr int legendWidth = 58;
constexpr int valueStepHeight = 40;
constexpr int fewTicks = 4;
constexpr int manyTicks = 8;
constexpr QSize readable(320, 200); // px; plots, axes and legend are still told apart

} // namespace

GraphLayout::GraphLayout(const QSize &size, int recordCount)
    : m_size(size)
    , m_recordCount(recordCount)
{
}

QRect GraphLayout::area(PlotArea area) const
{
    const int top = area == PlotArea::Upper ? plotTop() : half() + areaGap;
    return {QPoint(plotLeft(), top), QPoint(plotRight(), top + half() - plotTop())};
}

bool GraphLayout::isDrawable() const
{
    return plotRight() > plotLeft() && half() > plotTop();
}

int GraphLayout::valueSteps() const
{
    return (half() - plotTop()) / valueStepHeight + 1;
}

QVector<int> GraphLayout::valueHeights(PlotArea area) const
{
    const QRect rect = this->area(area);
    const int steps = valueSteps();
    QVector<int> heights;
    for (int step = 0; step <= steps; ++step)
        heights.append(qRound(rect.bottom() - double(rect.bottom() - rect.top()) * step / steps));
    return heights;
}

int GraphLayout::majorTicks() const
{
    const int ticks = width() - 1 > 499 ? manyTicks : fewTicks;
    return ticks >= m_recordCount ? qMax(0, m_recordCount - 1) : ticks;
}

int GraphLayout::zoomedMajorTicks() const
{
    return width() > 449 ? manyTicks : fewTicks;
}

double GraphLayout::pixelsPerRecord() const
{
    return m_recordCount < 1 ? 0.0 : double(plotRight() - plotLeft()) / m_recordCount;
}

QwtScaleMap GraphLayout::timeMap(double from, double to) const
{
    QwtScaleMap map;
    map.setScaleInterval(from, to > from || to < from ? to : from + 1);
    map.setPaintInterval(plotLeft(), plotRight());
    return map;
}

QwtScaleMap GraphLayout::valueMap(PlotArea area, double low, double high) const
{
    const QRect rect = this->area(area);
    QwtScaleMap map;
    map.setScaleInterval(low, high);
    map.setPaintInterval(rect.bottom(), rect.top());
    return map;
}

QRect GraphLayout::legend() const
{
    return {QPoint(width() - legendWidth, plotTop()), QPoint(width() - 1, plotBottom())};
}

QRect GraphLayout::legend(PlotArea area) const
{
    const QRect beside = this->area(area);
    return {QPoint(legend().left(), beside.top()), QPoint(legend().right(), beside.bottom())};
}

double GraphLayout::fittingScale(const QSize &size, double wanted)
{
    const double room
        = qMin(double(size.width()) / readable.width(), double(size.height()) / readable.height());
    return qMax(1.0, qMin(wanted, room));
}
