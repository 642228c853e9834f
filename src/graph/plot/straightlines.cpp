#include "graph/plot/straightlines.h"

#include <QPaintEngine>
#include <QPainter>

namespace {

bool isOfWholePixels(const QPainter &painter)
{
    const QTransform &map = painter.deviceTransform();
    return painter.paintEngine()->type() == QPaintEngine::Raster && map.type() <= QTransform::TxTranslate
        && QPointF(map.dx(), map.dy()) == QPoint(qRound(map.dx()), qRound(map.dy()))
        && !painter.testRenderHint(QPainter::Antialiasing);
}

} // namespace

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

StraightLines::StraightLines(QPainter *painter)
    : m_painter(painter)
    , m_quick(isOfWholePixels(*painter))
    , m_engine(std::make_unique<Engine>(this))
{
}

StraightLines::~StraightLines() = default;

void StraightLines::setPen(const QPen &pen)
{
    m_pen = pen;
    m_painter->setPen(pen);
    m_row = m_column = QImage();
}

void StraightLines::draw(const QLine &line)
{
    if (!m_quick || line.dx() < 0 || line.dy() < 0)
        m_painter->drawLine(line);
    else if (m_pen.style() == Qt::SolidLine)
        m_painter->fillRect(QRect(line.p1(), line.p2()), m_pen.color());
    else
        m_painter->drawImage(line.p1(), stripFor(line));
}

const QImage &StraightLines::stripFor(const QLine &line)
{
    const QSize size(line.dx() + 1, line.dy() + 1);
    QImage &strip = line.dy() == 0 ? m_row : m_column;
    if (strip.size() == size)
        return strip;
    strip = QImage(size, QImage::Format_ARGB32_Premultiplied);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setPen(m_pen);
    painter.drawLine(line.translated(-line.p1()));
    return strip;
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
