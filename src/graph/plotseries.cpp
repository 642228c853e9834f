#include "graph/plotseries.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

// From a few points straight to a block of its own, of which only the pages in use take memory. Growing by halves in
// between would leave holes as large as the points themselves, with many recordings at once.
constexpr int firstCapacities[] = {64, 512, 32768};

} // namespace

void PlotSeries::fillFront(int end, double value)
{
    std::fill_n(m_values.get(), std::min(end, m_size), value);
}

void PlotSeries::restartExtremes()
{
    m_minimum = far;
    m_maximum = -far;
}

void PlotSeries::reserve(int points)
{
    if (points <= m_capacity)
        return;
    // realloc, because it leaves new pages untouched and moves big blocks without copying them
    auto *values = static_cast<double *>(std::realloc(m_values.get(), sizeof(double) * size_t(points)));
    if (values == nullptr)
        throw std::bad_alloc();
    (void)m_values.release();
    m_values.reset(values);
    m_capacity = points;
}

void PlotSeries::clear()
{
    m_values.reset();
    m_size = 0;
    m_capacity = 0;
    restartExtremes();
}

void PlotSeries::grow()
{
    constexpr int most = std::numeric_limits<int>::max();
    if (m_capacity == most)
        throw std::bad_alloc();
    for (const int capacity : firstCapacities) {
        if (capacity > m_capacity)
            return reserve(capacity);
    }
    const int half = m_capacity / 2;
    reserve(m_capacity <= most - half ? m_capacity + half : most);
}
