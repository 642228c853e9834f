#include "series/plotseries.h"

#include "series/extremes.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

// From a few points straight to a block of its own, of which only the pages in use take memory. Growing by
// halves in between would leave holes as large as the points themselves, with many recordings at once.
constexpr int firstCapacities[] = {64, 512, 32768};

} // namespace

void PlotSeries::fillFront(int end, double value)
{
    const int filled = std::min(end, m_size);
    std::fill_n(m_values, filled, value);
    for (int block = 0; block * blockSize < filled && block < int(m_blocks.size()); ++block)
        m_blocks[size_t(block)] = blockAt(block);
}

Interval PlotSeries::blockAt(int block) const
{
    return extremesOf(m_values, block * blockSize, (block + 1) * blockSize);
}

void PlotSeries::addBlock()
{
    m_blocks.push_back(blockAt(int(m_blocks.size())));
}

// The next `count` points have been written.
void PlotSeries::takeOver(int count)
{
    for (const int end = m_size + count; m_size < end;) {
        const int begin = m_size;
        m_size = std::min(end, (begin / blockSize + 1) * blockSize);
        const Interval found = extremesOf(m_values, begin, m_size);
        m_minimum = std::min(m_minimum, found.low);
        m_maximum = std::max(m_maximum, found.high);
        if (m_size - begin == blockSize)
            m_blocks.push_back(found);
        else if (m_size % blockSize == 0)
            addBlock();
    }
}

Interval PlotSeries::extremes(int begin, int end) const
{
    const int firstWhole = (begin + blockSize - 1) / blockSize;
    const int endWhole = end / blockSize;
    if (firstWhole >= endWhole)
        return extremesOf(m_values, begin, end);
    Interval found = m_blocks[size_t(firstWhole)];
    for (int block = firstWhole + 1; block < endWhole; ++block)
        found.take(m_blocks[size_t(block)]);
    if (begin < firstWhole * blockSize)
        found.take(extremesOf(m_values, begin, firstWhole * blockSize));
    if (endWhole * blockSize < end)
        found.take(extremesOf(m_values, endWhole * blockSize, end));
    return found;
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
    auto *const values = static_cast<double *>(std::realloc(m_owned.get(), sizeof(double) * size_t(points)));
    if (values == nullptr)
        throw std::bad_alloc();
    if (!m_owned) // they are in the room that was given
        std::copy_n(m_values, m_size, values);
    (void)m_owned.release();
    m_owned.reset(values);
    m_values = values;
    m_capacity = points;
}

void PlotSeries::useRoom(double *room, int points)
{
    m_values = room;
    m_capacity = points;
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
