#include "graph/plot/framepainter.h"

#include "data/figuretext.h"
#include "graph/plot/graphfonts.h"
#include "graph/plot/graphtools.h"
#include "graph/plot/straightlines.h"
#include "graph/scene/cursordifference.h"
#include "series/seriesstore.h"
#include "graph/scene/timedivision.h"
#include "widgets/straightstrokes.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace {

constexpr int tickLength = 3;
constexpr int timeLabelLeft = 20; // px left of its tick
constexpr int timeLabelBelow = 18;
constexpr int labelGap = 4;
constexpr int informationParts = 7;

struct Tick {
    int x;
    double time; // s
};

int roundHalfUp(double x)
{
    return int(std::floor(x + 0.5));
}

QVector<Tick> zoomedTicks(const GraphCanvas &c)
{
    const Interval &times = c.request.zoom.times();
    QVector<Tick> ticks;
    const auto divisions = timeDivisions(times.low, times.high, c.layout.zoomedMajorTicks());
    for (const double time : divisions)
        ticks.append({roundHalfUp(c.timeMap.transform(time)), time});
    return ticks;
}

QVector<Tick> ticks(const GraphCanvas &c)
{
    if (c.request.zoom.isActive())
        return zoomedTicks(c);
    const PlotSeries &times = c.request.store->series(SeriesStore::Time);
    const int divisions = c.layout.majorTicks();
    QVector<Tick> ticks{{c.layout.plotLeft(), times[0]}};
    const double step = double(c.layout.plotRight() - c.layout.plotLeft()) / qMax(1, divisions);
    for (int k = 1; k <= divisions; ++k) {
        const int x = roundHalfUp(c.layout.plotLeft() + k * step);
        ticks.append({x, k == divisions ? times.last() : c.timeMap.invTransform(x)});
    }
    return ticks;
}

// Of all times the last tells how long it was and keeps its label; of a part, round ones keep theirs.
int lastNumber(const GraphCanvas &c, const QVector<Tick> &ticks)
{
    if (!c.request.zoom.isActive() || ticks.size() < 2)
        return 0;
    return qRound(ticks.last().time / (ticks[1].time - ticks[0].time));
}

// Lines of one and a half pixels of a screen would be now one wide and now two.
QPen ofWholePixels(const GraphCanvas &c, QPen pen)
{
    const double ratio = qMax(1.0, c.painter->device()->devicePixelRatioF());
    pen.setWidthF(std::floor(ratio) / ratio);
    return pen;
}

QPen gridPen(const GraphCanvas &c)
{
    return ofWholePixels(c, c.tools.gridPens[c.request.switches.blackBackground]);
}

QPen axisPen(const GraphCanvas &c)
{
    return ofWholePixels(c, c.tools.axisPens[c.request.switches.blackBackground]);
}

void paintPlotGrid(const GraphCanvas &c, PlotArea area, StraightLines *lines)
{
    const QRect rect = c.layout.area(area);
    QList<double> times;
    const QVector<Tick> columns = ticks(c);
    for (const Tick &tick : columns)
        times.append(tick.time);
    QList<double> heights;
    const QVector<int> rows = c.layout.valueHeights(area);
    for (const int y : rows)
        heights.append(y);
    QwtScaleMap heightMap; // divisions are given as heights already
    heightMap.setScaleInterval(rect.bottom(), rect.top());
    heightMap.setPaintInterval(rect.bottom(), rect.top());

    GraphTools &tools = c.tools;
    tools.timeDivision.setTicks(QwtScaleDiv::MajorTick, times);
    tools.valueDivision.setTicks(QwtScaleDiv::MajorTick, heights);
    tools.grid.setMajorPen(gridPen(c));
    tools.grid.setXDiv(tools.timeDivision);
    tools.grid.setYDiv(tools.valueDivision);
    if (!lines->isQuick()) {
        tools.grid.draw(c.painter, c.timeMap, heightMap, QRectF(rect));
        return;
    }
    QPainter painter(lines);
    tools.grid.draw(&painter, c.timeMap, heightMap, QRectF(rect));
}

} // namespace

void paintBackground(const GraphCanvas &c)
{
    c.painter->fillRect(QRect(QPoint(0, 0), c.request.size), c.colours.background());
}

void paintBadge(const GraphCanvas &c)
{
    const int right = c.request.windowNumber > 9 ? 14 : 10;
    const int bottom = c.layout.height() - 1;
    const QRect badge(QPoint(1, bottom - 21), QPoint(right, bottom - 1));
    const QString number = QString::number(c.request.windowNumber);
    c.painter->fillRect(badge, Qt::yellow);
    c.painter->setPen(Qt::black);
    c.painter->setFont(c.fonts.fit(10, number, badge.width()).font);
    c.tools.texts.draw(c.painter, badge, Qt::AlignCenter, number);
}

void paintInformation(const GraphCanvas &c, const GraphScene &scene)
{
    const QRect line(0, 0, c.layout.width(), c.layout.plotTop() - 1);
    const QString note = c.request.note.isEmpty() ? QString() : c.request.note + QStringLiteral("   ");
    QString text;
    GraphFonts::Fit fit;
    const QStringList change = cursorDifference(c.request, scene);
    for (int parts = change.isEmpty() ? informationParts : change.size(); parts >= 0; --parts) {
        text = note
            + (change.isEmpty() ? FigureText::information(c.request.store->records().last(), parts)
                                : change.mid(0, parts).join(QStringLiteral("   ")));
        fit = c.fonts.fit(9, text, line.width());
        if (fit.width <= line.width())
            break;
    }
    c.painter->setFont(fit.font);
    c.painter->setPen(note.isEmpty() ? c.colours.text() : c.colours.note());
    c.tools.texts.draw(c.painter, line, Qt::AlignCenter, text);
}

void paintTimeAxis(const GraphCanvas &c)
{
    const int bottom = c.layout.plotBottom();
    c.painter->setPen(axisPen(c));
    drawStraight(*c.painter, {c.layout.plotLeft(), bottom, c.layout.plotRight(), bottom});
    const QFont font = c.fonts.font(8);
    c.painter->setFont(font);
    const QVector<Tick> all = ticks(c);
    QVector<int> columns;
    QStringList labels;
    int width = 0;
    for (const Tick &tick : all) {
        drawStraight(*c.painter, {tick.x, bottom, tick.x, bottom + tickLength});
        columns.append(tick.x);
        labels.append(c.tools.timeScale.label(tick.time).text());
        width = qMax(width, c.fonts.widthIn(font.pixelSize(), labels.last()));
    }
    c.painter->setPen(c.colours.text());
    const QVector<int> labelled = labelledTicks(columns, width + labelGap, lastNumber(c, all));
    for (const int k : labelled)
        c.tools.texts.draw(c.painter, QPoint(columns[k] - timeLabelLeft, bottom + timeLabelBelow), labels[k]);
}

void paintGrid(const GraphCanvas &c, bool perCell)
{
    const QRect lower = c.layout.area(PlotArea::Lower);
    StraightLines lines(c.painter, &c.tools.strips);
    for (PlotArea area : {PlotArea::Upper, PlotArea::Lower}) {
        const QRect rect = c.layout.area(area);
        lines.setPen(axisPen(c));
        lines.draw({rect.left() - 2, rect.top(), rect.left() - 2, rect.bottom()});
        lines.draw({rect.right() + 2, rect.top(), rect.right() + 2, rect.bottom()});
        if (perCell) {
            paintPlotGrid(c, area, &lines);
            continue;
        }
        lines.setPen(gridPen(c));
        const QVector<int> heights = c.layout.valueHeights(area);
        for (const int y : heights)
            lines.draw({rect.left(), y, rect.right(), y});
    }
    if (perCell)
        return;
    const QVector<Tick> columns = ticks(c);
    for (const Tick &tick : columns)
        lines.draw({tick.x, c.layout.plotTop(), tick.x, lower.bottom()});
}

void paintNoData(
    const GraphCanvas &c, const QRect &rect, double points, const QColor &colour, const QString &reason)
{
    const QString text = QCoreApplication::translate("MdiGraphChild", "NO DATA");
    c.painter->setPen(colour);
    c.painter->setFont(c.fonts.fit(points, text, rect.width()).font);
    c.painter->drawText(rect, Qt::AlignCenter, text);
    const int below = rect.center().y() + QFontMetrics(c.painter->font()).height() / 2;
    c.painter->setFont(c.fonts.fit(9, reason, rect.width()).font);
    c.painter->drawText(QRect(rect.left(), below, rect.width(), QFontMetrics(c.painter->font()).height()),
        Qt::AlignCenter, reason);
}
