#include "displays/voltagechart.h"

#include "displays/chartpaint.h"
#include "widgets/displayscale.h"
#include "widgets/straightstrokes.h"
#include "data/figuretext.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr int axisWidth = 52;
constexpr int headerHeight = 24;
constexpr int textLine = 15;
constexpr int figureLines = 3;
constexpr int groupPadding = 12; // left and right of the bars
constexpr int smallestGroup = 128; // the figures' width
constexpr int smallestPitch = 15; // holds two digits
constexpr int largestPitch = 44;
constexpr double barShare = 0.75; // of the pitch
constexpr int packsPerRow = 3; // on a page, at most

struct Extremes {
    int highest, lowest; // cell indexes
};

Extremes extremesOf(const PackVoltages &pack, const QVector<int> &cells)
{
    const auto lower = [&pack](int a, int b) { return pack.voltages[a] < pack.voltages[b]; };
    if (cells.isEmpty())
        return {};
    // The first of several on either end, as in the other displays.
    return {*std::max_element(cells.begin(), cells.end(), lower),
        *std::min_element(cells.begin(), cells.end(), lower)};
}

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(VoltageComparison)
};

QString voltsText(int millivolts)
{
    return FigureText::volts(millivolts, 0, 3) + QStringLiteral(" V");
}

} // namespace

QVector<int> VoltageChart::shownCells(const PackVoltages &pack) const
{
    QVector<int> cells;
    for (int i = 0; i < pack.cellCount; ++i) {
        const bool hidden = oneCell >= 0 ? i != oneCell
                                         : (selection == AllButSelected && pack.selected[i])
                || (selection == OnlySelected && !pack.selected[i]);
        if (!hidden)
            cells.append(i);
    }
    return cells;
}

QString VoltageChart::noCellText(const PackVoltages &pack) const
{
    if (!pack.hasCellData)
        return Texts::tr("No cell data");
    if (oneCell >= 0)
        return Texts::tr("No cell %1").arg(oneCell + 1);
    return selection == AllButSelected ? Texts::tr("All cells are hidden.") : Texts::tr("No cell selected");
}

int VoltageChart::top() const
{
    return px(headerHeight + textLine);
}

int VoltageChart::bottom(int height) const
{
    return height - px((figureLines + 1) * textLine + 6);
}

int VoltageChart::groupWidth(const PackVoltages &pack, int pitch) const
{
    return qMax(px(smallestGroup), int(shownCells(pack).size()) * pitch + px(2 * groupPadding));
}

QVector<VoltageChart::Group> VoltageChart::groups(int available) const
{
    const int room = available - px(axisWidth);
    const auto total = [this](int pitch) {
        return std::accumulate(packs.begin(), packs.end(), 0,
            [this, pitch](int sum, const PackVoltages &pack) { return sum + groupWidth(pack, pitch); });
    };
    int pitch = px(largestPitch);
    while (pitch > px(smallestPitch) && total(pitch) > room)
        --pitch;
    const int spare = packs.isEmpty() ? 0 : qMax(0, room - total(pitch)) / packs.size();

    QVector<Group> result;
    int left = px(axisWidth);
    for (const PackVoltages &pack : packs) {
        result.append({left, groupWidth(pack, pitch) + spare, pitch});
        left += result.last().width;
    }
    return result;
}

int VoltageChart::contentWidth(int available) const
{
    const QVector<Group> all = groups(available);
    return all.isEmpty() ? available : qMax(available, all.last().left + all.last().width);
}

int VoltageChart::groupsWidth(int available) const
{
    return qMax(1, available - px(axisWidth));
}

int VoltageChart::firstSeen(int available, int scroll) const
{
    const QVector<Group> all = groups(available);
    const int left = px(axisWidth) + scroll;
    int pack = 0;
    while (pack + 1 < all.size() && all[pack].left < left)
        ++pack;
    // One that fills the view and more begins out of sight.
    if (pack > 0 && all[pack].left >= scroll + available)
        --pack;
    return all.isEmpty() ? -1 : pack;
}

int VoltageChart::groupStart(int pack, int available) const
{
    return groups(available).at(pack).left - px(axisWidth);
}

VoltageAxis VoltageChart::axis() const
{
    if (m_isRow)
        return m_pageAxis;
    int lowest = std::numeric_limits<int>::max();
    int highest = std::numeric_limits<int>::min();
    for (const PackVoltages &pack : packs) {
        const QVector<int> cells = shownCells(pack);
        for (const int cell : cells) {
            lowest = qMin(lowest, pack.voltages[cell]);
            highest = qMax(highest, pack.voltages[cell]);
        }
    }
    return lowest <= highest ? VoltageAxis::around(lowest, highest) : VoltageAxis();
}

QRect VoltageChart::barIn(
    const Group &group, int slot, int count, int voltage, const VoltageAxis &axis, int height) const
{
    const int width = qMax(1, int(group.pitch * barShare));
    const int first = group.left + (group.width - count * group.pitch) / 2 + (group.pitch - width) / 2;
    const int y = axis.y(voltage, bottom(height), top());
    return {first + slot * group.pitch, y, width, qMax(1, bottom(height) - y)};
}

QRect VoltageChart::barRect(int pack, int cell, const QSize &size, int scroll) const
{
    const QVector<int> cells = shownCells(packs[pack]);
    const int slot = cells.indexOf(cell);
    if (slot < 0)
        return {};
    const Group group = groups(size.width()).at(pack);
    return barIn(group, slot, cells.size(), packs[pack].voltages[cell], axis(), size.height())
        .translated(-scroll, 0);
}

VoltageChart::CellRef VoltageChart::cellAt(const QPoint &point, const QSize &size, int scroll) const
{
    if (point.x() < px(axisWidth))
        return {};
    for (int pack = 0; pack < packs.size(); ++pack) {
        const QVector<int> cells = shownCells(packs[pack]);
        for (const int cell : cells) {
            const QRect bar = barRect(pack, cell, size, scroll);
            const int slack = bar.width() / 4; // the gap belongs to its bars
            if (point.x() >= bar.left() - slack && point.x() <= bar.right() + slack)
                return {pack, cell};
        }
    }
    return {};
}

void VoltageChart::paint(QPainter &painter, const QSize &size, int scroll) const
{
    painter.setPen(ChartPaint::textColour(blackGround));
    if (packs.isEmpty()) {
        ChartPaint::drawFitted(
            painter, QRect(QPoint(0, 0), size), Qt::AlignCenter, Texts::tr("NO DATA"), 40, scale);
        return;
    }
    const VoltageAxis shared = axis();
    const QVector<Group> all = groups(size.width());
    paintAxis(painter, shared, size);
    painter.save();
    painter.setClipRect(px(axisWidth), 0, size.width() - px(axisWidth), size.height(), Qt::IntersectClip);
    painter.translate(-scroll, 0);
    for (int i = 0; i < packs.size(); ++i)
        if (all[i].left + all[i].width > scroll && all[i].left < scroll + size.width())
            paintGroup(painter, shared, i, all[i], size.height());
    painter.restore();
}

void VoltageChart::paintAxis(QPainter &painter, const VoltageAxis &axis, const QSize &size) const
{
    constexpr int tenth = 100; // mV
    const int decimals = axis.step % tenth == 0 ? 1 : 2;
    const QVector<int> marks = axis.marks();
    for (const int mark : marks) {
        const int y = axis.y(mark, bottom(size.height()), top());
        painter.setPen(blackGround ? QColor(60, 60, 60) : QColor(215, 215, 215));
        drawStraight(painter, {px(axisWidth), y, size.width() - 1, y});
        painter.setPen(ChartPaint::textColour(blackGround));
        ChartPaint::drawFitted(painter, {0, y - px(8), px(axisWidth - 6), px(16)},
            Qt::AlignRight | Qt::AlignVCenter, FigureText::volts(mark, 0, decimals), 8, scale);
    }
    painter.setPen(ChartPaint::textColour(blackGround));
    ChartPaint::drawFitted(painter, {px(4), px(4), px(axisWidth - 10), px(16)},
        Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("[V]"), 8, scale);
}

void VoltageChart::paintGroup(
    QPainter &painter, const VoltageAxis &axis, int pack, const Group &group, int height) const
{
    painter.setPen(ChartPaint::grey);
    drawStraight(painter, {group.left, 0, group.left, height});
    drawStraight(painter, {group.left, bottom(height), group.left + group.width - 1, bottom(height)});
    paintHeader(painter, packs[pack], group);
    if (packs[pack].staleSince.isValid())
        painter.setOpacity(ChartPaint::staleOpacity);
    paintBars(painter, axis, pack, group, height);
    paintFigures(painter, packs[pack], group, height);
    painter.setOpacity(1.0);
}

void VoltageChart::paintHeader(QPainter &painter, const PackVoltages &pack, const Group &group) const
{
    const int badge = ChartPaint::drawBadge(painter, group.left + px(4), px(3), pack.windowNumber, scale);
    const int left = group.left + px(10) + badge;
    painter.setPen(ChartPaint::textColour(blackGround));
    ChartPaint::drawFitted(painter, {left, px(3), group.left + group.width - left - px(2), px(18)},
        Qt::AlignLeft | Qt::AlignVCenter, pack.device, 9, scale);
    if (pack.staleSince.isValid())
        ChartPaint::drawFitted(painter,
            {group.left + px(4), px(headerHeight - 2), group.width - px(8), px(textLine)},
            Qt::AlignLeft | Qt::AlignVCenter,
            Texts::tr("No line since %1").arg(pack.staleSince.time().toString(QStringLiteral("HH:mm:ss"))), 8,
            scale);
}

void VoltageChart::paintBars(
    QPainter &painter, const VoltageAxis &axis, int pack, const Group &group, int height) const
{
    const PackVoltages &shown = packs[pack];
    const QVector<int> cells = shownCells(shown);
    const Extremes extremes = extremesOf(shown, cells);
    for (int slot = 0; slot < cells.size(); ++slot) {
        const int cell = cells[slot];
        const QRect bar = barIn(group, slot, cells.size(), shown.voltages[cell], axis, height);
        const bool several = cells.size() > 1;
        // The colours of the highest and the lowest cell in the data display.
        const QColor colour = several && cell == extremes.highest ? QColor(230, 210, 0)
            : several && cell == extremes.lowest ? (distinct ? QColor(190, 70, 0) : QColor(255, 127, 0))
                                                 : QColor(70, 120, 255);
        painter.fillRect(bar, colour);
        if (distinct) {
            painter.setPen(ChartPaint::textColour(blackGround));
            drawBox(painter, bar.adjusted(0, 0, -1, -1));
        }
        const bool emphasised = shown.selected[cell] && selection == All;
        if (emphasised) {
            painter.setPen(QPen(
                ChartPaint::textColour(blackGround), px(2), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
            painter.drawRect(bar);
        }
        ChartPaint::drawFitted(painter,
            {bar.center().x() - group.pitch / 2, bottom(height) + px(2), group.pitch, px(textLine)},
            Qt::AlignCenter, QString::number(cell + 1), emphasised ? 9 : 8, scale, emphasised);
    }
}

void VoltageChart::paintFigures(
    QPainter &painter, const PackVoltages &pack, const Group &group, int height) const
{
    const QVector<int> cells = shownCells(pack);
    const Extremes extremes = extremesOf(pack, cells);
    const QRect line(
        group.left + px(4), bottom(height) + px(textLine + 2), group.width - px(8), px(textLine));
    painter.setPen(ChartPaint::textColour(blackGround));
    if (cells.isEmpty()) {
        ChartPaint::drawFitted(painter, {line.left(), top(), line.width(), bottom(height) - top()},
            Qt::AlignCenter, noCellText(pack), 11, scale);
        return;
    }
    if (oneCell >= 0) {
        ChartPaint::drawFitted(painter, {line.left(), line.top(), line.width(), px(2 * textLine)},
            Qt::AlignCenter, voltsText(pack.voltages[oneCell]), 14, scale, true);
        return;
    }
    const int highest = pack.voltages[extremes.highest];
    const int lowest = pack.voltages[extremes.lowest];
    const QString texts[] = {
        Texts::tr("Max %1, cell %2").arg(voltsText(highest), QString::number(extremes.highest + 1)),
        Texts::tr("Min %1, cell %2").arg(voltsText(lowest), QString::number(extremes.lowest + 1)),
        Texts::tr("Spread %1")
            .arg(FigureText::fixed((double(highest) - lowest) / 1000.0, 3) + QStringLiteral(" V")),
    };
    for (int i = 0; i < figureLines; ++i)
        ChartPaint::drawFitted(painter, line.translated(0, i * px(textLine)),
            Qt::AlignLeft | Qt::AlignVCenter, texts[i], 8, scale);
}

int VoltageChart::pageRows() const
{
    return qMax(1, (packs.size() + packsPerRow - 1) / packsPerRow);
}

VoltageChart VoltageChart::row(int index) const
{
    const int inRow = (packs.size() + pageRows() - 1) / pageRows();
    VoltageChart result = *this;
    result.m_pageAxis = axis();
    result.m_isRow = true;
    result.packs = packs.mid(index * inRow, inRow);
    return result;
}

QSize VoltageChart::pageSize() const
{
    const int rows = pageRows();
    int width = px(480);
    for (int i = 0; i < rows; ++i)
        width = qMax(width, row(i).contentWidth(px(480)));
    return {width, rows * px(280)};
}

void VoltageChart::paintPage(QPainter &painter) const
{
    const QSize page = pageSize();
    const int rows = pageRows();
    for (int i = 0; i < rows; ++i) {
        painter.save();
        painter.translate(0, i * px(280));
        row(i).paint(painter, {page.width(), px(280) - px(8)});
        painter.restore();
    }
}
