#include "graph/plot/legendpainter.h"

#include "graph/curves/linedashes.h"
#include "graph/scene/celllegend.h"
#include "graph/plot/graphfonts.h"
#include "graph/plot/graphtools.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

constexpr int markWidth = 9; // px, the stroke in a curve's colour before its name
constexpr int dashesWidth = 16; // px, the same with room for dashes
constexpr int dashesRoom = 9; // px that they take of the room between axis and legend
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
    return !entry.name.isEmpty() && entry.name[0].isDigit();
}

bool isNarrow(const QRect &row)
{
    return row.width() < narrowRow;
}

int markWidthOf(const GraphCanvas &c)
{
    return c.request.switches.distinctLines ? dashesWidth : markWidth;
}

// The curve's line as it is, in `rect`, along its longer side.
void paintMark(const GraphCanvas &c, const QRect &rect, const GraphScene::Entry &entry)
{
    const bool upright = rect.height() > rect.width();
    const LineDashes dashes(entry.style, 0, 1);
    const auto strokes = dashes.strokes(0, upright ? rect.height() : rect.width());
    for (const LineDashes::Stroke &stroke : strokes) {
        const int begin = int(stroke.begin);
        const int length = int(stroke.end) - begin;
        c.painter->fillRect(upright ? QRect(rect.left(), rect.top() + begin, rect.width(), length)
                                    : QRect(rect.left() + begin, rect.top(), length, rect.height()),
            entry.colour);
    }
}

bool fits(const GraphCanvas &c, const GraphScene::Entry &entry, const QRect &row, int font)
{
    const int mark = !isNumbered(entry) ? markHeight + textGap : isNarrow(row) ? 0 : markWidthOf(c);
    const int name = isNumbered(entry) && !isNarrow(row) ? numberWidth : c.fonts.widthIn(font, entry.name);
    const int gaps = isNarrow(row) ? 2 : isNumbered(entry) ? 3 : 4;
    const int room = row.width() - mark - name - gaps * textGap;
    return c.fonts.mostWidthIn(font, entry.value) <= room || c.fonts.widthIn(font, entry.value) <= room;
}

// After the rows, so that no mark cuts its descenders.
void paintHeading(const GraphCanvas &c, const GraphScene &scene, const QRect &first, const QRect &second)
{
    const int room = qMax(smallestFont, first.height() - textGap);
    c.painter->setPen(c.colours.heading());
    const auto paint = [&](const QRect &line, const QString &text) {
        const int pixels = c.fonts.fit(8, text, line.width()).font.pixelSize();
        c.painter->setFont(c.fonts.ofSize(qMin(pixels, room)));
        c.tools.texts.draw(c.painter, line, nameAlignment, text);
    };
    paint(first, QCoreApplication::translate("MdiGraphChild", "   Cels:"));
    paint(second, scene.cellHeading + QLatin1Char(' ') + scene.cellUnit);
}

// In a narrow row the number is its own mark.
void paintNumber(
    const GraphCanvas &c, const GraphScene::Entry &entry, const QRect &row, const QColor &background)
{
    c.painter->setPen(GraphColours::readable(entry.colour, background));
    if (!isNarrow(row)) {
        const int mark = markWidthOf(c);
        paintMark(c, QRect(row.left() + 1, row.center().y() - 1, mark - 2, markHeight), entry);
        c.tools.texts.draw(c.painter, QRect(row.left() + mark, row.top(), numberWidth, row.height()),
            numberAlignment, entry.name);
        return;
    }
    if (fits(c, entry, row, c.painter->font().pixelSize())) // else the place tells which cell it is
        c.tools.texts.draw(c.painter, row, nameAlignment, entry.name);
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
        paintMark(c, QRect(row.left(), row.top() + 1, markHeight, row.height() - 2), entry);
        c.painter->setPen(c.colours.heading());
        c.tools.texts.draw(c.painter, row.adjusted(markHeight + textGap, 0, 0, 0), nameAlignment, entry.name);
    }
    c.painter->setPen(c.colours.text());
    c.tools.texts.draw(c.painter, row.adjusted(0, 0, isNarrow(row) ? -textGap - 1 : -textGap, 0),
        numberAlignment, entry.value);
}

void paintCells(const GraphCanvas &c, const GraphScene &scene)
{
    const CellLegend legend(c.layout, scene.upperLegend.size());
    const int largest = qMin(c.fonts.font(8).pixelSize(), qMax(smallestFont, legend.row(0).height() - 1));
    const auto rowOf = [&](int i) {
        const QRect row = legend.row(i);
        const bool wide
            = c.request.switches.distinctLines && isNumbered(scene.upperLegend[i]) && !isNarrow(row);
        return row.adjusted(wide ? -dashesRoom : 0, 0, 0, 0);
    };
    const auto fontOf = [&](int row) {
        int font = largest;
        while (font > smallestFont && !fits(c, scene.upperLegend[row], rowOf(row), font))
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
        paintRow(c, scene.upperLegend[i], rowOf(i), c.fonts.ofSize(font));
    }
    paintHeading(c, scene, legend.heading(0), legend.heading(1));
}

void paintText(const GraphCanvas &c, const QString &text, const QRect &line, int alignment)
{
    const int pixels = c.fonts.fit(8, text, line.width()).font.pixelSize();
    c.painter->setFont(c.fonts.ofSize(qMin(pixels, qMax(smallestFont, line.height() - 1))));
    c.tools.texts.draw(c.painter, line, alignment, text);
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
    const int mark = markWidthOf(c);
    int top = column.top();
    for (const GraphScene::Entry &entry : entries) {
        const QRect first(column.left() + mark + 2, top, column.width() - mark - 4, line);
        paintMark(c, QRect(column.left() + 1, first.center().y(), mark - 1, markHeight), entry);
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
