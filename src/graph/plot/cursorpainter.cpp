#include "graph/plot/cursorpainter.h"

#include "data/timetext.h"
#include "data/figuretext.h"
#include "graph/plot/graphfonts.h"
#include "graph/curves/pixels.h"
#include "series/seriesstore.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace {

struct Line {
    QString name, value;
    QColor colour;
};

struct Block {
    int rows; // in a column
    int columnWidth;
    QSize size;
};

constexpr int fromLine = 8; // px between the cursor line and its values
constexpr int margin = 5;
constexpr int columnGap = 12;
constexpr int textGap = 8; // between a name and its value
constexpr double mostOfPlot = 0.75; // of its width

int cellCurves(const GraphScene &scene)
{
    return int(std::count_if(scene.curves.begin(), scene.curves.end(),
        [](const GraphScene::Curve &curve) { return curve.series >= SeriesStore::Cell1; }));
}

QVector<Line> valuesAt(const GraphCanvas &c, const GraphScene &scene, int record)
{
    const double time = c.request.store->series(SeriesStore::Time)[record];
    QVector<Line> lines{{QString(), elapsedTimeText(time), c.colours.text()}};
    for (const GraphScene::Curve &curve : scene.curves) {
        const double value = c.request.store->series(curve.series)[record] * curve.factor;
        const QString text
            = record < curve.first ? FigureText::shortDashes() : FigureText::fixed(value, curve.decimals);
        lines.append({curve.name, text + QLatin1Char(' ') + curve.unit, curve.colour});
    }
    return lines;
}

// As many columns as the height asks for.
Block blockOf(const GraphCanvas &c, const QVector<Line> &lines)
{
    const QFontMetrics metrics(c.fonts.font(8));
    int nameWidth = 0;
    int valueWidth = 0;
    for (const Line &line : lines) {
        nameWidth = qMax(nameWidth, metrics.horizontalAdvance(line.name));
        valueWidth = qMax(valueWidth, metrics.horizontalAdvance(line.value));
    }
    const int room = c.layout.plotBottom() - c.layout.plotTop() - 3 * margin;
    const int perColumn = qMax(1, room / metrics.height());
    const int columns = (lines.size() + perColumn - 1) / perColumn;
    const int rows = (lines.size() + columns - 1) / columns;
    const int columnWidth = nameWidth + textGap + valueWidth;
    return {rows, columnWidth,
        QSize(columns * columnWidth + (columns - 1) * columnGap + 2 * margin,
            rows * metrics.height() + 2 * margin)};
}

void paintValues(const GraphCanvas &c, const QVector<Line> &lines, const Block &block, int x)
{
    const bool fitsRight = x + fromLine + block.size.width() <= c.layout.plotRight();
    const int left = fitsRight ? x + fromLine : qMax(0, x - fromLine - block.size.width());
    const QRect box(QPoint(left, c.layout.plotTop() + margin), block.size);
    QColor back = c.colours.highlight();
    back.setAlpha(235);
    c.painter->setPen(c.colours.grid());
    c.painter->setBrush(back);
    c.painter->drawRect(box);
    c.painter->setFont(c.fonts.font(8));
    const int height = c.painter->fontMetrics().height();
    for (int i = 0; i < lines.size(); ++i) {
        const QRect row(box.left() + margin + i / block.rows * (block.columnWidth + columnGap),
            box.top() + margin + i % block.rows * height, block.columnWidth, height);
        c.painter->setPen(GraphColours::readable(lines[i].colour, c.colours.highlight()));
        c.painter->drawText(row, Qt::AlignLeft | Qt::AlignVCenter, lines[i].name);
        c.painter->drawText(row, Qt::AlignRight | Qt::AlignVCenter, lines[i].value);
    }
}

// Its column; nothing where it is not on the picture.
std::optional<int> paintLine(const GraphCanvas &c, int record, Qt::PenStyle style)
{
    const int x = pixelOf(c.timeMap, c.request.store->series(SeriesStore::Time)[record]);
    if (x < c.layout.plotLeft() || x > c.layout.plotRight())
        return std::nullopt;
    c.painter->setPen(QPen(c.colours.axis(), 1, style));
    for (PlotArea area : {PlotArea::Upper, PlotArea::Lower})
        c.painter->drawLine(x, c.layout.area(area).top(), x, c.layout.area(area).bottom());
    return x;
}

} // namespace

void paintMark(const GraphCanvas &c, int record)
{
    paintLine(c, record, Qt::DashLine);
}

void paintCursor(const GraphCanvas &c, const GraphScene &scene, int record)
{
    const std::optional<int> x = paintLine(c, record, Qt::SolidLine);
    if (!x)
        return;
    // in a small window the cells' values would hide the plots
    const QVector<Line> all = valuesAt(c, scene, record);
    for (int count : {all.size(), all.size() - cellCurves(scene), 1}) {
        const QVector<Line> lines = all.mid(0, 1) + all.mid(all.size() - count + 1);
        const Block block = blockOf(c, lines);
        if (count > 1 && block.size.width() > (c.layout.plotRight() - c.layout.plotLeft()) * mostOfPlot)
            continue;
        paintValues(c, lines, block, *x);
        return;
    }
}

void paintRubberBand(const GraphCanvas &c, const QRect &rect)
{
    QColor fill = c.colours.current();
    c.painter->setPen(QPen(fill, 1, Qt::DashLine));
    fill.setAlpha(40);
    c.painter->setBrush(fill);
    c.painter->drawRect(rect.adjusted(0, 0, -1, -1));
}
