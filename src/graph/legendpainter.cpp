#include "graph/legendpainter.h"

#include "graph/celllegend.h"
#include "graph/graphfonts.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int markWidth = 9; // px, the stroke in a curve's colour before its name
constexpr int markHeight = 3;
constexpr int lineHeight = 13;
constexpr int lowestLine = 10; // lower ones would touch
constexpr int entryGap = 4;
constexpr int textGap = 2;
constexpr int numberWidth = 14;
constexpr int smallestFont = 8; // px
constexpr int numberAlignment = Qt::AlignRight | Qt::AlignVCenter;

// Cells are numbered; maximum, average, minimum and delta have names.
bool isNumbered(const GraphScene::Entry &entry)
{
    return entry.name.size() <= 2;
}

} // namespace

LegendPainter::LegendPainter(const GraphCanvas &canvas)
    : c(canvas)
    , p(canvas.painter)
{
}

void LegendPainter::paint(const GraphScene &scene)
{
    if (!scene.cellHeading.isEmpty()) {
        paintCells(scene);
        if (CellLegend(c.layout, scene.upperLegend.size()).isWholeColumn())
            return;
    } else {
        paintEntries(scene.upperLegend, c.layout.legend(PlotArea::Upper));
    }
    paintEntries(scene.lowerLegend, c.layout.legend(PlotArea::Lower));
}

bool LegendPainter::fits(const GraphScene::Entry &entry, const QRect &row, int font)
{
    const int name = isNumbered(entry) ? markWidth + numberWidth
                                       : markHeight + textGap + c.fonts.widthIn(font, entry.name);
    return name + 2 * textGap + c.fonts.widthIn(font, entry.value) + textGap <= row.width();
}

void LegendPainter::paintCells(const GraphScene &scene)
{
    const CellLegend legend(c.layout, scene.upperLegend.size());
    int font = c.fonts.font(8).pixelSize();
    font = qMin(font, qMax(smallestFont, legend.heading(0).height() - 1));
    p->setFont(c.fonts.ofSize(font));
    p->setPen(c.colours.heading());
    const QString headings[] = {QCoreApplication::translate("MdiGraphChild", "   Cels:"),
        scene.cellHeading + QLatin1Char(' ') + scene.cellUnit};
    for (int line = 0; line < 2; ++line)
        p->drawText(legend.heading(line), Qt::AlignLeft | Qt::AlignVCenter, headings[line]);
    const auto fit = [&](const GraphScene::Entry &entry) { return fits(entry, legend.row(0), font); };
    while (font > smallestFont && !std::all_of(scene.upperLegend.begin(), scene.upperLegend.end(), fit))
        --font;
    for (int i = 0; i < scene.upperLegend.size(); ++i)
        paintRow(scene.upperLegend[i], legend.row(i), c.fonts.ofSize(font));
}

void LegendPainter::paintRow(const GraphScene::Entry &entry, const QRect &row, QFont font)
{
    const QColor background = entry.marked ? c.colours.highlight() : c.colours.background();
    if (entry.marked)
        p->fillRect(row, background);
    if (entry.marked)
        font.setBold(true);
    p->setFont(font);
    if (isNumbered(entry)) {
        p->fillRect(row.left() + 1, row.center().y() - 1, markWidth - 2, markHeight, entry.colour);
        p->setPen(GraphColours::readable(entry.colour, background));
        p->drawText(
            QRect(row.left() + markWidth, row.top(), numberWidth, row.height()), numberAlignment, entry.name);
    } else {
        p->fillRect(row.left(), row.top() + 1, markHeight, row.height() - 2, entry.colour);
        p->setPen(c.colours.heading());
        p->drawText(
            row.adjusted(markHeight + textGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, entry.name);
    }
    p->setPen(c.colours.text());
    p->drawText(row.adjusted(0, 0, -textGap, 0), numberAlignment, entry.value);
}

void LegendPainter::paintEntries(const QVector<GraphScene::Entry> &entries, const QRect &column)
{
    if (entries.isEmpty())
        return;
    const int room = (column.height() - 2) / entries.size(); // of one entry
    const bool named = room >= 2 * lowestLine; // in a low window the colour and the unit tell what a value is
    const int line = qMin(lineHeight, named ? room / 2 : room);
    const int height = named ? 2 * line : line;
    const int gap = qBound(0, room - height, entryGap);
    int top = column.top();
    for (const GraphScene::Entry &entry : entries) {
        const QRect first(column.left() + markWidth + 2, top, column.width() - markWidth - 4, line);
        p->fillRect(QRect(column.left() + 1, first.center().y(), markWidth - 1, markHeight), entry.colour);
        if (named) {
            p->setPen(c.colours.readable(entry.colour));
            paintText(entry.name, first, Qt::AlignLeft | Qt::AlignVCenter);
        }
        p->setPen(c.colours.text());
        paintText(entry.value, named ? QRect(column.left(), top + line, column.width() - 2, line) : first,
            numberAlignment);
        top += height + gap;
    }
}

void LegendPainter::paintText(const QString &text, const QRect &line, int alignment)
{
    const int pixels = c.fonts.fit(8, text, line.width()).font.pixelSize();
    p->setFont(c.fonts.ofSize(qMin(pixels, qMax(smallestFont, line.height() - 1))));
    p->drawText(line, alignment, text);
}
