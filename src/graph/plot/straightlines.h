#pragma once

#include <QImage>
#include <QPaintDevice>
#include <QPen>

#include <memory>

class QPainter;

/// Lines of one pixel along rows and columns, solid or dotted, pixel by pixel those of a painter. That sets each
/// dot, and each pixel of a column, by itself; here a dotted line is one picture, painted as often as there are
/// lines of its length. What is painted onto this device comes out in the same way, if it is such lines.
class StraightLines : public QPaintDevice {
public:
    /// `painter` outlives this.
    explicit StraightLines(QPainter *painter);
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

    const QImage &stripFor(const QLine &line);

    QPainter *m_painter;
    QPen m_pen;
    bool m_quick;
    QImage m_row;
    QImage m_column;
    std::unique_ptr<Engine> m_engine;
};
