#include "graph/plot/legendpainter.h"

#include "graph/scene/celllegend.h"
#include "graph/plot/graphfonts.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

constexpr int markWidth = 9; // px, the stroke in a curve's colour before its name
constexpr int markHeight = 3;
constexpr int lineHeight = 13;
constexpr int lowestLine = 10; // lower ones would touch
constexpr int entryGap = 4;
constexpr int textGap = 2;
constexpr int numberWidth = 14;
constexpr int smallestFont = 8; // px
constexpr int narrowRow = 40; // px; one of two columns
constexpr int nameAlignment = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip;
constexpr int numberAlignment = Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip;

// Cells are numbered; maximum, average, minimum and delta have names.
bool isNumbered(const GraphScene::Entry &entry)
{
    return entry.name.size() <= 2;
}

bool isNarrow(const QRect &row)
{
    return row.width() < narrowRow;
}

bool fits(const GraphCanvas &c, const GraphScene::Entry &entry, const QRect &row, int font)
{
    const int mark = !isNumbered(entry) ? markHeight + textGap : isNarrow(row) ? 0 : markWidth;
    const int name = isNumbered(entry) && !isNarrow(row) ? numberWidth : c.fonts.widthIn(font, entry.name);
    const int gaps = isNarrow(row) ? 2 : isNumbered(entry) ? 3 : 4;
    return mark + name + c.fonts.widthIn(font, entry.value) + gaps * textGap <= row.width();
}

// After the rows, so that no mark cuts its descenders.
void paintHeading(const GraphCanvas &c, const GraphScene &scene, const QRect &first, const QRect &second)
{
    const int room = qMax(smallestFont, first.height() - textGap);
    c.painter->setFont(c.fonts.ofSize(qMin(c.fonts.font(8).pixelSize(), room)));
    c.painter->setPen(c.colours.heading());
    c.painter->drawText(first, nameAlignment, QCoreApplication::translate("MdiGraphChild", "   Cels:"));
    c.painter->drawText(second, nameAlignment, scene.cellHeading + QLatin1Char(' ') + scene.cellUnit);
}

// In a narrow row the number is its own mark, underlined where there is room.
void paintNumber(
    const GraphCanvas &c, const GraphScene::Entry &entry, const QRect &row, const QColor &background)
{
    c.painter->setPen(GraphColours::readable(entry.colour, background));
    if (!isNarrow(row)) {
        c.painter->fillRect(row.left() + 1, row.center().y() - 1, markWidth - 2, markHeight, entry.colour);
        c.painter->drawText(
            QRect(row.left() + markWidth, row.top(), numberWidth, row.height()), numberAlignment, entry.name);
        return;
    }
    if (!fits(c, entry, row, c.painter->font().pixelSize()))
        return; // the place tells which cell it is
    c.painter->drawText(row, nameAlignment, entry.name);
    if (row.height() >= lineHeight)
        c.painter->fillRect(row.left(), row.bottom() - 1,
            c.fonts.widthIn(c.painter->font().pixelSize(), entry.name), 2, entry.colour);
}

void paintRow(const GraphCanvas &c, const GraphScene::Entry &entry, const QRect &row, QFont font)
{
    const QColor background = entry.marked ? c.colours.highlight() : c.colours.background();
    if (entry.marked)
        c.painter->fillRect(row, background);
    if (entry.marked)
        font.setBold(true);
    c.painter->setFont(font);
    if (isNumbered(entry)) {
        paintNumber(c, entry, row, background);
    } else {
        c.painter->fillRect(row.left(), row.top() + 1, markHeight, row.height() - 2, entry.colour);
        c.painter->setPen(c.colours.heading());
        c.painter->drawText(row.adjusted(markHeight + textGap, 0, 0, 0), nameAlignment, entry.name);
    }
    c.painter->setPen(c.colours.text());
    c.painter->drawText(
        row.adjusted(0, 0, isNarrow(row) ? -textGap - 1 : -textGap, 0), numberAlignment, entry.value);
}

void paintCells(const GraphCanvas &c, const GraphScene &scene)
{
    const CellLegend legend(c.layout, scene.upperLegend.size());
    const int largest = qMin(c.fonts.font(8).pixelSize(), qMax(smallestFont, legend.row(0).height() - 1));
    const auto fontOf = [&](int row) {
        int font = largest;
        while (font > smallestFont && !fits(c, scene.upperLegend[row], legend.row(row), font))
            --font;
        return font;
    };
    int numbered = largest; // numbers stand in columns: one font for all
    for (int i = 0; i < scene.upperLegend.size(); ++i) {
        if (isNumbered(scene.upperLegend[i]))
            numbered = qMin(numbered, fontOf(i));
    }
    for (int i = 0; i < scene.upperLegend.size(); ++i) {
        const int font = isNumbered(scene.upperLegend[i]) ? numbered : fontOf(i);
        paintRow(c, scene.upperLegend[i], legend.row(i), c.fonts.ofSize(font));
    }
    paintHeading(c, scene, legend.heading(0), legend.heading(1));
}

void paintText(const GraphCanvas &c, const QString &text, const QRect &line, int alignment)
{
    const int pixels = c.fonts.fit(8, text, line.width()).font.pixelSize();
    c.painter->setFont(c.fonts.ofSize(qMin(pixels, qMax(smallestFont, line.height() - 1))));
    c.painter->drawText(line, alignment, text);
}

void paintEntries(const GraphCanvas &c, const QVector<GraphScene::Entry> &entries, const QRect &column)
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
        c.painter->fillRect(
            QRect(column.left() + 1, first.center().y(), markWidth - 1, markHeight), entry.colour);
        if (named) {
            c.painter->setPen(c.colours.readable(entry.colour));
            paintText(c, entry.name, first, nameAlignment);
        }
        c.painter->setPen(c.colours.text());
        paintText(c, entry.value, named ? QRect(column.left(), top + line, column.width() - 2, line) : first,
            numberAlignment);
        top += height + gap;
    }
}

} // namespace

void paintLegend(const GraphCanvas &c, const GraphScene &scene)
{
    if (scene.cellHeading.isEmpty()) {
        paintEntries(c, scene.upperLegend, c.layout.legend(PlotArea::Upper));
        paintEntries(c, scene.lowerLegend, c.layout.legend(PlotArea::Lower));
    } else {
        paintCells(c, scene);
        paintEntries(c, scene.lowerLegend, CellLegend(c.layout, scene.upperLegend.size()).below());
    }
}
