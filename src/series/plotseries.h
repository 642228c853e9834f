#pragma once

#include "series/interval.h"

#include <cstdlib>
#include <memory>
#include <vector>

/// One plot series: a growing array of values with their running extremes, and those of each
/// block of them. Memory is taken only where points are, and growing moves no values where
/// the system can extend a block in place.
class PlotSeries {
public:
    PlotSeries() = default;
    ~PlotSeries() = default;
    /// What they leave behind may only be destroyed or assigned to.
    PlotSeries(PlotSeries &&other) = default;
    PlotSeries &operator=(PlotSeries &&other) = default;
    PlotSeries(const PlotSeries &) = delete;
    PlotSeries &operator=(const PlotSeries &) = delete;

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    double operator[](int index) const { return m_values[index]; }
    double last() const { return m_values[m_size - 1]; }
    /// The values, contiguous; valid until the next append().
    const double *begin() const { return m_values; }
    const double *end() const { return m_values + m_size; }

    /// Extremes of the points appended since the last restartExtremes(); 0 without any.
    double minimum() const { return m_minimum <= m_maximum ? m_minimum : 0.0; }
    double maximum() const { return m_minimum <= m_maximum ? m_maximum : 0.0; }

    /// The lowest and the highest of the points `begin`..`end` - 1, of which there is at least one; looks at
    /// less than two blocks of them and at one pair for each block between.
    Interval extremes(int begin, int end) const;

    static constexpr int blockSize = 128; ///< points; their extremes take a sixtieth of the memory

    void append(double value)
    {
        if (m_size == m_capacity)
            grow();
        m_values[m_size++] = value;
        m_minimum = value < m_minimum ? value : m_minimum;
        m_maximum = value > m_maximum ? value : m_maximum;
        if (m_size % blockSize == 0)
            addBlock();
    }
    /// Appends the `count` points value(0)..value(count - 1), as so many append() would, and faster.
    template <typename Value>
    void appendRun(int count, const Value &value)
    {
        while (m_capacity - m_size < count)
            grow();
        double *const points = m_values + m_size;
        for (int i = 0; i < count; ++i)
            points[i] = value(i);
        takeOver(count);
    }
    /// Overwrites the points before `end`; the extremes do not see it.
    void fillFront(int end, double value);
    /// Forgets the extremes so far: points before the next one don't count for a range.
    void restartExtremes();
    /// Takes the memory that the next `count` points need, fewer than a block, which then can't fail. Throws
    /// std::bad_alloc where there is too little, and has changed nothing.
    void makeRoom(int count)
    {
        while (m_capacity - m_size < count)
            grow();
        if (m_blocks.size() == m_blocks.capacity())
            m_blocks.reserve(m_blocks.size() + m_blocks.size() / 2 + 1);
    }
    /// Room for `points` points without growing. Throws std::bad_alloc where there is none.
    void reserve(int points);
    /// Lets a series without points use the `points` places at `room`, which outlive them or the series. It
    /// leaves them when they don't suffice.
    void useRoom(double *room, int points);

private:
    struct Release {
        void operator()(double *values) const { std::free(values); }
    };

    void grow();
    void takeOver(int count);
    void addBlock();
    Interval blockAt(int block) const;

    static constexpr double far = 1e300; // beyond every value that integers make

    double *m_values = nullptr; // in m_owned, or in the room that was given
    std::unique_ptr<double[], Release> m_owned;
    int m_size = 0;
    int m_capacity = 0;
    double m_minimum = far;
    double m_maximum = -far;
    std::vector<Interval> m_blocks; // extremes of each whole block
};
