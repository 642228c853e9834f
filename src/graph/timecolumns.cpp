#include "graph/timecolumns.h"

#include <QtGlobal>

#include <qwt_scale_map.h>

#include <algorithm>

void TimeColumns::assign(const double *times, int count, const QwtScaleMap &map, int left, int right)
{
    m_left = left - 1;
    m_seriesSize = count;
    m_starts.clear();
    const double *from = times;
    const double *const end = times + count;
    for (int column = m_left; column <= right + 2; ++column) {
        from = std::partition_point(
            from, end, [&](double time) { return qRound(map.transform(time)) < column; });
        m_starts.push_back(int(from - times));
    }
}
