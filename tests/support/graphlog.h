#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPen>
#include <QStringList>
#include <QTransform>

/// A device that notes what is painted on it, a line for each stroke, rectangle, curve and text.
class GraphLog : public QPaintDevice {
public:
    QStringList lines() const { return m_engine.lines; } ///< in the order of painting
    QPaintEngine *paintEngine() const override { return &m_engine; }

    /// What `script` paints, in a language of one command a line; px, colours by name:
    ///
    ///     pen COLOUR [dot|dash]           font PIXELS [bold]
    ///     x X... : TOP BOTTOM             y Y... : LEFT RIGHT             lines
    ///     column X Y...|TEXT|TEXT...      row Y X...|TEXT|TEXT...         texts from a baseline
    ///     left X Y W H TEXT               right ..., mid ...              a text in a rectangle
    ///     fill X Y W H COLOUR             box X Y W H COLOUR              a rectangle, a box with an outline
    ///     curve X Y X Y COUNT WIDTH       of so many points, its first and its last
    static QStringList of(const QString &script, double scale = 1.0);

protected:
    int metric(PaintDeviceMetric metric) const override // dots an inch, and all else
    {
        return metric == PdmDevicePixelRatio ? 1 : metric == PdmDevicePixelRatioScaled ? 0x10000 : 96;
    }

private:
    class Engine : public QPaintEngine {
    public:
        Engine();
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState &state) override;
        using QPaintEngine::drawLines;
        using QPaintEngine::drawPolygon;
        using QPaintEngine::drawRects;
        void drawLines(const QLineF *lines, int count) override;
        void drawRects(const QRectF *rects, int count) override;
        void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
        void drawTextItem(const QPointF &position, const QTextItem &item) override;
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override
        {
            note(QStringLiteral("pixmap"));
        }
        void note(const QString &line) { lines.append(line); }
        QString at(const QPointF &point) const;
        QString penText() const;

        QStringList lines;
        QPen pen;
        QBrush brush;
        QTransform transform;
    };
    mutable Engine m_engine;
};
