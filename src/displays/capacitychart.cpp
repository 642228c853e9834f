#include "displays/capacitychart.h"

#include "displays/chartpaint.h"
#include "data/figuretext.h"
#include "widgets/straightstrokes.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int leftEdge = 30;
constexpr int sideSpace = 59; // left and right of the bars together
constexpr int textLine = 15; // of the list on a page

struct BarColours {
    char mode;
    QColor outline;
    QColor body;
    QColor distinctBody;
    char letter;
    bool dark; ///< the distinct body
};

constexpr BarColours barColours[] = {
    {'C', {0, 255, 0}, {0, 127, 0}, {0, 150, 50}, 'C', true},
    {'D', {255, 0, 0}, {127, 0, 0}, {110, 0, 0}, 'D', true},
    {'\0', {255, 255, 0}, {127, 127, 0}, {245, 225, 90}, 'B', false}, // every other process
};

const BarColours &coloursOf(char mode)
{
    const BarColours *colours = barColours;
    while (colours->mode != mode && colours->mode != '\0')
        ++colours;
    return *colours;
}

} // namespace

QString CapacityEntry::text() const
{
    const QString name = recorded.isEmpty() ? QString::number(number) : recorded;
    return name + QStringLiteral(", ") + FigureText::fixed(capacity / 1000.0, 3) + QStringLiteral(" Ah");
}

int CapacityChart::margin(int height) const
{
    return qMax(px(30), int(0.2 * height));
}

int CapacityChart::largest() const
{
    const auto smaller
        = [](const CapacityEntry &a, const CapacityEntry &b) { return a.capacity < b.capacity; };
    return std::max_element(entries.begin(), entries.end(), smaller)->capacity;
}

double CapacityChart::percent(int index) const
{
    const int reference = largest();
    return reference > 0 ? entries[index].capacity * 100.0 / reference : 0.0;
}

int CapacityChart::barTop(int index, int height) const
{
    const int space = margin(height);
    const double reference = largest();
    const int capacity = entries[index].capacity;
    // A process of no capacity, or of a negative one that no device has, keeps a bar of one pixel.
    const int length = capacity > 0 ? int(capacity / reference * (height - 2 * space)) : 1;
    return height - length - space;
}

QRect CapacityChart::barRect(int index, const QSize &size) const
{
    const int usable = size.width() - px(sideSpace);
    const int gaps = int(usable * 0.25);
    const int width = int((usable - gaps) * 0.125);
    const int gap = gaps / (visibleBars - 1);
    const int left = px(leftEdge) + (index - first) * (width + gap);
    const int top = barTop(index, size.height());
    return {left, top, width, size.height() - margin(size.height()) - top};
}

int CapacityChart::visibleEnd() const
{
    return qMin(first + visibleBars, entries.size());
}

int CapacityChart::entryAt(const QPoint &point, const QSize &size) const
{
    for (int i = first; i < visibleEnd(); ++i) {
        const QRect bar = barRect(i, size);
        if (point.x() >= bar.left() && point.x() <= bar.right())
            return i;
    }
    return -1;
}

void CapacityChart::paint(QPainter &painter, const QSize &size) const
{
    paintLines(painter, size);
    for (int i = first; i < visibleEnd(); ++i)
        paintEntry(painter, i, size);
}

void CapacityChart::paintLines(QPainter &painter, const QSize &size) const
{
    const int space = margin(size.height());
    const int range = size.height() - 2 * space;
    painter.setPen(ChartPaint::grey);
    for (const int y : {size.height() - space, space, space + range / 3, space + 2 * range / 3})
        drawStraight(painter, {px(20), y, size.width() - px(20), y});
}

void CapacityChart::paintEntry(QPainter &painter, int index, const QSize &size) const
{
    const QRect bar = barRect(index, size);
    if (entries[index].staleSince.isValid())
        painter.setOpacity(ChartPaint::staleOpacity);
    paintBar(painter, index, bar);
    paintBoxes(painter, index, bar);
    paintFigures(painter, index, bar, margin(size.height()));
    painter.setOpacity(1.0);
}

void CapacityChart::paintBar(QPainter &painter, int index, const QRect &bar) const
{
    const BarColours &colours = coloursOf(entries[index].mode);
    if (distinct) {
        painter.setPen(ChartPaint::textColour(blackGround));
        painter.setBrush(colours.distinctBody);
        drawBox(painter, bar.adjusted(0, 0, -1, -1));
        return paintLetter(painter, colours.letter, bar, colours.dark);
    }
    // A bar that is all outline is seen on white in the body's colour only.
    const bool flat = bar.height() <= 2 && !blackGround;
    const QColor &outline = flat ? colours.body : colours.outline;
    painter.fillRect(bar, colours.body);
    painter.fillRect(bar.left() + bar.width() / 6, bar.top(), bar.width() / 5, bar.height(), outline);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    drawBox(painter, bar.adjusted(0, 0, -1, -1));
}

// In the foot of the bar, or beside one that is too low for it.
void CapacityChart::paintLetter(QPainter &painter, char letter, const QRect &bar, bool onDark) const
{
    const int height = px(textLine);
    const bool inside = bar.height() >= height + 2;
    QRect box(bar.left(), bar.bottom() + 1 - height, bar.width(), height);
    if (!inside) // in the gap to the next one
        box.setRect(bar.right() + 1, box.top(), px(13), height);
    painter.setPen(ChartPaint::textColour(inside ? onDark : blackGround));
    ChartPaint::drawFitted(painter, box, Qt::AlignCenter, QString(QLatin1Char(letter)), 10, scale, true);
}

// Below the bar: which one it is, and its capacity where the `space` down to the edge has room for it.
void CapacityChart::paintFigures(QPainter &painter, int index, const QRect &bar, int space) const
{
    painter.setPen(ChartPaint::textColour(blackGround));
    const int below = qMin(space, px(28));
    ChartPaint::drawFitted(painter, {bar.left(), bar.bottom() + 1, bar.width(), below},
        Qt::AlignHCenter | Qt::AlignBottom, QString::number(index + 1), 10, scale, true);
    const int height = px(textLine);
    if (below + height > space)
        return;
    const QString text = FigureText::ampereHours(entries[index].capacity).trimmed() + QStringLiteral(" Ah");
    ChartPaint::drawFitted(painter,
        {bar.left() - px(6), bar.bottom() + 1 + below, bar.width() + px(12), height}, Qt::AlignCenter, text,
        8, scale);
}

QSize CapacityChart::pageSize(const QSize &size) const
{
    return {size.width(), size.height() + (visibleEnd() - first) * px(textLine)};
}

void CapacityChart::paintPage(QPainter &painter, const QSize &size) const
{
    paint(painter, size);
    painter.setPen(Qt::black);
    QRect line(px(leftEdge), size.height(), size.width() - px(sideSpace), px(textLine));
    for (int i = first; i < visibleEnd(); ++i, line.translate(0, line.height()))
        ChartPaint::drawFitted(painter, line, Qt::AlignLeft | Qt::AlignVCenter, entries[i].text(), 8, scale);
}

void CapacityChart::paintBoxes(QPainter &painter, int index, const QRect &bar) const
{
    // The window's number stands on the bar, the per cent on the number. The margin always has room for both.
    const int width = px(40);
    const int height = px(14);
    QRect box(bar.left() + px(5), bar.top() - px(20), width, height);
    painter.setPen(Qt::black);
    painter.setBrush(QColor(255, 255, 200));
    drawBox(painter, box.adjusted(0, 0, -1, -1));
    ChartPaint::drawFitted(painter, box, Qt::AlignCenter, QString::number(entries[index].number), 8, scale);

    if (entries[index].capacity == 0)
        return;
    box.moveTop(qMax(0, box.top() - px(16)));
    painter.setPen(Qt::black);
    painter.setBrush(Qt::yellow);
    drawBox(painter, box.adjusted(0, 0, -1, -1));
    ChartPaint::drawFitted(
        painter, box, Qt::AlignCenter, FigureText::fixed(percent(index), 0) + QLatin1Char('%'), 8, scale);
}
