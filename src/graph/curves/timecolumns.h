#pragma once

#include <vector>

class PlotSeries;
class QwtScaleMap;

/// Which samples of a time series fall on which pixel column of a plot area: the one partition that all
/// curves of the area share. A column takes the samples whose position rounds to it.
class TimeColumns {
public:
    /// Neighbouring samples on one column.
    struct Stretch {
        int x;
        int begin;
        int end; ///< one past the last
    };

    /// Sorts `times` into the columns left-1..right+1, one column beyond each edge so
    /// that lines reach over it. Where they do not ascend throughout, the cost is one look at each of them.
    void assign(const PlotSeries &times, bool ascending, const QwtScaleMap &map, int left, int right);

    /// Takes in what has been appended to `times`, which still ascend, since they were last assigned with
    /// this map; at a cost that depends on that alone.
    void extend(const PlotSeries &times, const QwtScaleMap &map);

    /// What a curve passes through on its way, in the order of the samples; in ascending times a column once
    /// at most. Before and after columns of the area stands the neighbour outside. Of a series that jumps
    /// about more than any device does, several stretches are one, in the column of the first.
    const std::vector<Stretch> &stretches() const { return m_stretches; }
    /// Samples on all columns together.
    int sampleCount() const { return m_sampleCount; }

private:
    void assignAscending(const PlotSeries &times, const QwtScaleMap &map);
    void assignAny(const PlotSeries &times, const QwtScaleMap &map);
    void takeFrom(int from, const PlotSeries &times, const QwtScaleMap &map);
    void add(const Stretch &stretch);
    void thinOut();
    int sideOf(int x) const { return x < m_left ? -1 : x > m_right; }

    int m_left = 0; // columns taken, the one beyond each edge included
    int m_right = 0;
    int m_sampleCount = 0;
    std::vector<Stretch> m_stretches;
};
