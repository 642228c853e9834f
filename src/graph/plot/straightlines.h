#pragma once

#include <QCache>
#include <QImage>
#include <QPair>
#include <QPaintDevice>
#include <QPen>

#include <memory>

class QPainter;

/// Dotted lines of one pen, each length once: rows and columns of pixels, kept from one painting to the next.
class LineStrips {
public:
    const QImage &strip(const QPen &pen, const QSize &size);

private:
    QPen m_pen;
    QCache<QPair<int, int>, QImage> m_strips{8}; // by size; two plots need three
};

/// Lines of one pixel along rows and columns, solid or dotted, pixel by pixel those of a painter. That sets
/// each dot, and each pixel of a column, by itself; here a dotted line is one picture, painted as often as
/// there are lines of its length. What is painted onto this device comes out in the same way, if it is such
/// lines.
class StraightLines : public QPaintDevice {
public:
    /// Both outlive this.
    StraightLines(QPainter *painter, LineStrips *strips);
    ~StraightLines() override;

    /// Of one pixel.
    void setPen(const QPen &pen);

    /// Of pixels one by one; else the painter draws its lines as it always does.
    bool isQuick() const { return m_quick; }
    /// From left to right, or from top to bottom.
    void draw(const QLine &line);

    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;

    QPainter *m_painter;
    QPen m_pen;
    bool m_quick;
    LineStrips *m_strips;
    std::unique_ptr<Engine> m_engine;
};
