#pragma once

#include <QRect>
#include <QVector>

#include <vector>

/// Which pixels of an area are painted. Finds out what is painted over again
/// and again, and what needs no painting.
class InkColumns {
public:
    explicit InkColumns(const QRect &area);

    /// Paints the part of `rect` that lies inside the area.
    void fill(const QRect &rect);
    /// True if all of `rect` that lies inside the area is painted.
    bool covers(const QRect &rect) const;
    /// What is painted, as rectangles a pixel wide that don't touch one another
    /// above or below, from left to right.
    QVector<QRect> spans() const;

private:
    size_t offset(int x, int y) const
    {
        return size_t(x - m_area.left()) * m_height + size_t(y - m_area.top());
    }

    QRect m_area;
    size_t m_height; // px
    std::vector<char> m_painted; // 1 or 0, column after column
};
