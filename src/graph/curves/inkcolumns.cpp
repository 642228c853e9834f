#include "graph/curves/inkcolumns.h"

#include <cstring>

InkColumns::InkColumns(const QRect &area)
    : m_area(area)
    , m_height(size_t(area.height()))
    , m_painted(size_t(area.width()) * m_height)
{
}

void InkColumns::fill(const QRect &rect)
{
    const QRect inside = rect & m_area;
    for (int x = inside.left(); x <= inside.right(); ++x)
        std::memset(m_painted.data() + offset(x, inside.top()), 1, size_t(inside.height()));
}

bool InkColumns::covers(const QRect &rect) const
{
    const QRect inside = rect & m_area;
    for (int x = inside.left(); x <= inside.right(); ++x) {
        if (std::memchr(m_painted.data() + offset(x, inside.top()), 0, size_t(inside.height())) != nullptr)
            return false;
    }
    return true;
}

QVector<QRect> InkColumns::spans() const
{
    QVector<QRect> spans;
    for (int x = m_area.left(); x <= m_area.right(); ++x) {
        const char *const column = m_painted.data() + offset(x, m_area.top());
        const char *const end = column + m_height;
        const auto next = [end](const char *from, char wanted) {
            const void *const found = std::memchr(from, wanted, size_t(end - from));
            return found != nullptr ? static_cast<const char *>(found) : end;
        };
        for (const char *from = next(column, 1); from != end;) {
            const char *const to = next(from, 0);
            spans.append(QRect(x, m_area.top() + int(from - column), 1, int(to - from)));
            from = next(to, 1);
        }
    }
    return spans;
}
