#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QStringList>
#include <QWidget>

/// Takes down what is painted, one line an operation, in pixels of the picture:
///   rect 30,140 38x84 #007f00    line 20,224 450,224 #7f7f7f    text '1' mid 49,238 13 bold Arial #ffffff
/// "pen2" before the colour of a rect tells a frame and its width. A text is there in four ways, by where
/// its "left" end, its "mid" or its "right" end lies at half its height, or its middle at its "foot", so
/// that a test names the one that its box holds and no font can change. "dim" ends a line that is less than
/// opaque.
class PaintLog : public QPaintEngine {
public:
    PaintLog()
        : QPaintEngine(AllFeatures)
    {
    }

    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &) override { }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override { }
    void drawLines(const QLineF *drawn, int n) override
    {
        for (const QLineF *l = drawn; l < drawn + n; ++l)
            add({"line " + at(l->p1()) + ' ' + at(l->p2())}, painter()->pen().color());
    }
    void drawRects(const QRectF *drawn, int n) override
    {
        for (const QRectF *r = drawn; r < drawn + n; ++r) {
            const QString place
                = QString("rect %1 %2x%3").arg(at(r->topLeft())).arg(r->width()).arg(r->height());
            const QPen &pen = painter()->pen();
            if (painter()->brush().style() != Qt::NoBrush && !r->isEmpty())
                add({place}, painter()->brush().color());
            if (pen.style() != Qt::NoPen)
                add({place + QString(" pen%1").arg(pen.widthF())}, pen.color());
        }
    }
    void drawTextItem(const QPointF &p, const QTextItem &item) override
    {
        const QString text = "text '" + item.text() + "' ";
        const QFont f = item.font();
        const QString font = QString(" %1%2 ").arg(f.pixelSize()).arg(f.bold() ? " bold" : "") + f.family();
        const qreal y = p.y() + (item.descent() - item.ascent()) / 2;
        const qreal w = item.width();
        add({text + "left " + at({p.x(), y}) + font, text + "mid " + at({p.x() + w / 2, y}) + font,
                text + "right " + at({p.x() + w, y}) + font,
                text + "foot " + at({p.x() + w / 2, p.y() + item.descent()}) + font},
            painter()->pen().color());
    }

    QStringList lines;
    int count = 0; ///< operations

private:
    QString at(const QPointF &point) const
    {
        const QPointF mapped = painter()->transform().map(point);
        return QString("%1,%2").arg(qRound(mapped.x())).arg(qRound(mapped.y()));
    }
    void add(const QStringList &ways, const QColor &colour)
    {
        ++count;
        for (const QString &way : ways)
            lines << way + ' ' + colour.name() + (painter()->opacity() < 0.9 ? " dim" : "");
    }
};

/// A picture of `size` pixels that is only taken down.
class LoggedPicture : public QPaintDevice {
public:
    explicit LoggedPicture(const QSize &size)
        : m_size(size)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_log; }
    /// Empty when each of `expected`, which are parted by "; ", was painted, and, where these are `all`,
    /// nothing else.
    QByteArray fault(const QString &expected, bool all = false) const
    {
        const QStringList wanted = expected.split("; ");
        QStringList missing;
        std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(missing),
            [this](const QString &line) { return !m_log.lines.contains(line); });
        if (missing.isEmpty() && (!all || m_log.count == wanted.size()))
            return {};
        return (missing + QStringList("is missing, painted was:") + m_log.lines).join('\n').toUtf8();
    }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmWidth || metric == PdmHeight)
            return metric == PdmWidth ? m_size.width() : m_size.height();
        if (metric == PdmDevicePixelRatio || metric == PdmDevicePixelRatioScaled)
            return metric == PdmDevicePixelRatio ? 1 : int(devicePixelRatioFScale());
        return 96; // dots per inch
    }

private:
    QSize m_size;
    mutable PaintLog m_log;
};

/// The fault() of what `paint` paints into `size` pixels.
template <typename Paint>
QByteArray paintFault(const QSize &size, Paint paint, const QString &expected, bool all = false)
{
    LoggedPicture picture(size);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    return picture.fault(expected, all);
}

/// That of what `widget` shows.
inline QByteArray paintFault(QWidget &widget, const QString &expected)
{
    LoggedPicture picture(widget.size());
    widget.render(&picture);
    return picture.fault(expected);
}

/// Fails, telling all that was painted, where paintFault() finds one.
#define VERIFY_PAINTS(...)                                                                                   \
    do {                                                                                                     \
        const QByteArray fault = paintFault(__VA_ARGS__);                                                    \
        QVERIFY2(fault.isEmpty(), fault);                                                                    \
    } while (false)
