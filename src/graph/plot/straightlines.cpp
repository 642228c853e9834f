#include "graph/plot/straightlines.h"

#include "widgets/straightstrokes.h"

#include <QPaintEngine>
#include <QPainter>

#include <utility>

class StraightLines::Engine : public QPaintEngine {
public:
    explicit Engine(StraightLines *lines)
        : QPaintEngine(AllFeatures)
        , m_lines(lines)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &changed) override
    {
        if (changed.state() & DirtyPen) // the caps may be others
            m_lines->setPen(changed.pen());
    }
    Type type() const override { return User; }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }
    void drawLines(const QLineF *lines, int count) override
    {
        for (int i = 0; i < count; ++i)
            m_lines->draw(lines[i].toLine());
    }

private:
    StraightLines *m_lines; // its owner
};

const QImage &LineStrips::strip(const QPen &pen, const QSize &size)
{
    const QPair<int, int> key(size.width(), size.height());
    if (pen != std::exchange(m_pen, pen))
        m_strips.clear();
    if (const QImage *known = m_strips.object(key))
        return *known;
    auto *const strip = new QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_strips.insert(key, strip);
    strip->fill(Qt::transparent);
    QPainter painter(strip);
    painter.setPen(pen);
    painter.drawLine(0, 0, size.width() - 1, size.height() - 1);
    return *strip;
}

StraightLines::StraightLines(QPainter *painter, LineStrips *strips)
    : m_painter(painter)
    , m_quick(isOfWholePixels(*painter))
    , m_strips(strips)
    , m_engine(std::make_unique<Engine>(this))
{
}

StraightLines::~StraightLines() = default;

void StraightLines::setPen(const QPen &pen)
{
    m_pen = pen;
    m_painter->setPen(pen);
}

void StraightLines::draw(const QLine &line)
{
    if (!m_quick)
        m_painter->drawLine(line);
    else if (m_pen.style() == Qt::SolidLine)
        m_painter->fillRect(QRect(line.p1(), line.p2()), m_pen.color());
    else
        m_painter->drawImage(line.p1(), m_strips->strip(m_pen, {line.dx() + 1, line.dy() + 1}));
}

QPaintEngine *StraightLines::paintEngine() const
{
    return m_engine.get();
}

// As large as any picture; of no unit that a line needs.
int StraightLines::metric(PaintDeviceMetric metric) const
{
    constexpr int large = 1 << 15;
    return metric == PdmWidth || metric == PdmHeight ? large : 1;
}
