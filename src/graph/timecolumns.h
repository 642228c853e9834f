#pragma once

#include <vector>

class QwtScaleMap;

/// Which samples of an ascending time series fall on which pixel column of a plot area: the one partition that all
/// curves of the area share. A column takes the samples whose position rounds to it.
class TimeColumns {
public:
    /// Sorts the `count` values at `times` into the columns left-1..right+1, one column beyond each edge so that lines
    /// reach over it.
    void assign(const double *times, int count, const QwtScaleMap &map, int left, int right);

    int left() const { return m_left; } ///< first column, one before the area
    int columnCount() const { return int(m_starts.size()) - 1; }
    /// First sample of column left() + `column`, which is one past the last of the column before; `column` may be
    /// columnCount().
    int start(int column) const { return m_starts[std::size_t(column)]; }
    /// Samples on all columns together.
    int sampleCount() const { return m_starts.back() - m_starts.front(); }
    /// Samples in the series, on a column or not.
    int seriesSize() const { return m_seriesSize; }

private:
    int m_left = 0;
    int m_seriesSize = 0;
    std::vector<int> m_starts = {0};
};
