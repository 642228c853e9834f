#pragma once

#include <cstdlib>
#include <memory>

/// One plot series: a growing array of values with their running extremes. Memory is taken only where points are, and
/// growing moves no values where the system can extend a block in place.
class PlotSeries {
public:
    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    double operator[](int index) const { return m_values[index]; }
    double last() const { return m_values[m_size - 1]; }
    /// The values, contiguous; valid until the next append().
    const double *begin() const { return m_values.get(); }
    const double *end() const { return m_values.get() + m_size; }

    /// Extremes of the points appended since the last restartExtremes(); 0 without any.
    double minimum() const { return m_minimum <= m_maximum ? m_minimum : 0.0; }
    double maximum() const { return m_minimum <= m_maximum ? m_maximum : 0.0; }

    void append(double value)
    {
        if (m_size == m_capacity)
            grow();
        m_values[m_size++] = value;
        m_minimum = value < m_minimum ? value : m_minimum;
        m_maximum = value > m_maximum ? value : m_maximum;
    }
    /// Overwrites the points before `end`; the extremes do not see it.
    void fillFront(int end, double value);
    /// Forgets the extremes so far: points before the next one don't count for a range.
    void restartExtremes();
    /// Room for `points` points without growing. Throws std::bad_alloc where there is none.
    void reserve(int points);
    void clear();

private:
    struct Release {
        void operator()(double *values) const { std::free(values); }
    };

    void grow();

    static constexpr double far = 1e300; // beyond every value that integers make

    std::unique_ptr<double[], Release> m_values;
    int m_size = 0;
    int m_capacity = 0;
    double m_minimum = far;
    double m_maximum = -far;
};
