#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QStringList>
#include <QWidget>

#include <algorithm>

/// A picture that is only taken down, one line an operation, in pixels:
///
///     rect 30,140 38x84 #007f00
///     line 20,224 450,224 #7f7f7f
///     curve 40,118 400,43 of 20 pen2 #00ff00
///     text '1' mid 49,238 13 bold Arial #ffffff
///     disc 20,30 8x8 #00ff00
///
/// A curve is there as the "shape" of its box, too, and by what it is clipped to, "in 56,22 664x552". Before
/// a colour "pen2" tells the width of a frame, or of a stroke that is not one pixel wide, "dash1,2" the
/// pattern of one that has gaps. A text is there in five ways, "at" the start of its baseline, by where its
/// "left" end, its "mid" or its "right" end lies at half its height, or its middle at its "foot", so that a
/// test names the one that its box holds and no font can change. "dim" ends a line of an opacity of 0.4.
class PaintLog : public QPaintDevice {
public:
    /// As if painted by an engine of that `type`.
    explicit PaintLog(const QSize &size = {}, QPaintEngine::Type type = QPaintEngine::User)
        : m_size(size)
        , m_engine(type)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }
    /// All operations in their order, in the first way each.
    QStringList lines() const
    {
        QStringList lines;
        for (const QStringList &ways : qAsConst(m_engine.operations))
            lines.append(ways.first());
        return lines;
    }
    /// Empty when each of `expected`, which are parted by "; ", was painted, but for those with "no " before
    /// them, and, where these are `all`, nothing else.
    QByteArray fault(const QString &expected, bool all = false) const
    {
        const QStringList wanted = expected.split("; ");
        QStringList painted;
        for (const QStringList &ways : qAsConst(m_engine.operations))
            painted += ways;
        QStringList missing;
        std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(missing), [&](const QString &line) {
            const bool isUnwanted = line.startsWith("no ");
            return painted.contains(line.mid(isUnwanted ? 3 : 0)) == isUnwanted;
        });
        if (missing.isEmpty() && (!all || m_engine.operations.size() == wanted.size()))
            return {};
        return (missing + QStringList("is missing, painted was:") + painted).join('\n').toUtf8();
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
    struct Engine : QPaintEngine {
        explicit Engine(Type type)
            : QPaintEngine(AllFeatures)
            , pretended(type)
        {
        }

        using QPaintEngine::drawLines;
        using QPaintEngine::drawPolygon;
        using QPaintEngine::drawRects;
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        Type type() const override { return pretended; }
        void updateState(const QPaintEngineState &) override { }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { add({"pixmap"}, {}); }
        void drawPolygon(const QPointF *p, int n, PolygonDrawMode) override
        {
            const QRectF box = QPolygonF(QVector<QPointF>(p, p + n)).boundingRect();
            const QRectF clip = painter()->clipBoundingRect();
            add({"curve " + at(p[0]) + ' ' + at(p[n - 1]) + QString(" of %1").arg(n) + stroke(),
                    QString("shape %1 %2x%3").arg(at(box.topLeft())).arg(box.width()).arg(box.height()),
                    QString("in %1 %2x%3").arg(at(clip.topLeft())).arg(clip.width()).arg(clip.height())},
                penColour());
        }
        void drawLines(const QLineF *drawn, int n) override
        {
            for (const QLineF *l = drawn; l < drawn + n; ++l)
                add({"line " + at(l->p1()) + ' ' + at(l->p2()) + stroke()}, penColour());
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
                    add({place + QString(" pen%1").arg(pen.widthF()) + gaps()}, pen.color());
            }
        }
        void drawEllipse(const QRectF &r) override
        {
            const QString place = QString("disc %1 %2x%3").arg(at(r.center())).arg(r.width()).arg(r.height());
            if (painter()->brush().style() != Qt::NoBrush)
                add({place}, painter()->brush().color());
            add({place + QString(" pen%1").arg(painter()->pen().widthF())}, penColour());
        }
        void drawTextItem(const QPointF &p, const QTextItem &item) override
        {
            const QString text = "text '" + item.text() + "' ";
            const QFont f = item.font();
            const double pixels = f.pixelSize() * painter()->transform().m11();
            const QString font = QString(" %1%2 ").arg(pixels).arg(f.bold() ? " bold" : "") + f.family();
            const qreal y = p.y() + (item.descent() - item.ascent()) / 2;
            const qreal w = item.width();
            add({text + "at " + at(p) + font, text + "left " + at({p.x(), y}) + font,
                    text + "mid " + at({p.x() + w / 2, y}) + font,
                    text + "right " + at({p.x() + w, y}) + font,
                    text + "foot " + at({p.x() + w / 2, p.y() + item.descent()}) + font},
                penColour());
        }

        QString at(const QPointF &point) const
        {
            const QPointF mapped = painter()->transform().map(point);
            return QString("%1,%2").arg(qRound(mapped.x())).arg(qRound(mapped.y()));
        }
        QColor penColour() const { return painter()->pen().color(); }
        QString stroke() const
        {
            const double width = painter()->pen().widthF() * painter()->transform().m11();
            return (width == 1.0 ? QString() : QString(" pen%1").arg(width)) + gaps();
        }
        QString gaps() const
        {
            QStringList lengths;
            const QVector<qreal> pattern = painter()->pen().dashPattern();
            if (painter()->pen().style() > Qt::SolidLine)
                std::transform(pattern.begin(), pattern.end(), std::back_inserter(lengths),
                    [](qreal length) { return QString::number(length); });
            return lengths.isEmpty() ? QString() : " dash" + lengths.join(',');
        }
        void add(const QStringList &ways, const QColor &colour)
        {
            const auto format = colour.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb;
            operations.append(ways);
            for (QString &way : operations.last())
                way += ' ' + colour.name(format) + (painter()->opacity() == 0.4 ? " dim" : "");
        }

        Type pretended;
        QVector<QStringList> operations;
    };

    QSize m_size;
    mutable Engine m_engine;
};

/// The fault() of what `paint` paints into `size` pixels.
template <typename Paint>
QByteArray paintFault(const QSize &size, Paint paint, const QString &expected, bool all = false)
{
    PaintLog picture(size);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    return picture.fault(expected, all);
}

/// That of what `widget` shows.
inline QByteArray paintFault(QWidget &widget, const QString &expected)
{
    PaintLog picture(widget.size());
    widget.render(&picture);
    return picture.fault(expected);
}

/// Fails, telling all that was painted, where paintFault() finds one.
#define VERIFY_PAINTS(...)                                                                                   \
    do {                                                                                                     \
        const QByteArray fault = paintFault(__VA_ARGS__);                                                    \
        QVERIFY2(fault.isEmpty(), fault);                                                                    \
    } while (false)
