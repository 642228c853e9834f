#include "overlay/overlaypainter.h"

#include "graph/curves/linedashes.h"
#include "graph/curves/outlinestroke.h"
#include "graph/curves/pixels.h"
#include "graph/curves/vectorstate.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/scene/timedivision.h"
#include "overlay/scene/overlaylayout.h"
#include "overlay/scene/overlayscene.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int tickLength = 3; // px, as all here
constexpr int labelGap = 6;
constexpr int labelHeight = 14;
constexpr int placeStep = 75; // that a division takes at least
constexpr int valueStep = 36;
constexpr int markWidth = 24; // of the stroke in a curve's colour before its name
constexpr int markHeight = 3;
constexpr int textGap = 4;
constexpr int twoLines = 22; // height of a row that has room for them
constexpr double dashUnit = 2;

} // namespace

struct OverlayPainter::Canvas {
    QPainter *painter;
    const OverlayRequest &request;
    double scale; // of the painter, which counts in the layout's pixels
    OverlayLayout layout;
    GraphColours colours;
    OverlayScene scene;
    QwtScaleMap columns;
    QwtScaleMap heights;

    Canvas(QPainter *used, const OverlayRequest &shown)
        : painter(used)
        , request(shown)
        , scale(GraphLayout::fittingScale(shown.size, shown.scale))
        , layout(shown.size / scale, shown.entries.size())
        , colours(shown.black, shown.distinct)
        , scene(OverlayScene::of(shown, std::max(1, layout.plot().width() / placeStep),
              std::max(1, layout.plot().height() / valueStep)))
        , columns(layout.columns(shown.shownPlaces()))
        , heights(layout.heights(shown.shownValues()))
    {
    }
};

void OverlayPainter::paint(QPainter *painter, const OverlayRequest &request)
{
    painter->save();
    const Canvas canvas(painter, request);
    painter->scale(canvas.scale, canvas.scale);
    painter->fillRect(QRect(QPoint(0, 0), request.size), canvas.colours.background());
    if (canvas.layout.isDrawable()) {
        paintHeading(canvas);
        paintPlaces(canvas);
        paintValues(canvas);
        paintCurves(canvas);
        paintLegend(canvas);
        paintPointer(canvas);
        paintReason(canvas);
    }
    painter->restore();
    clearVectorState(); // for all that runs until the next painting
}

void OverlayPainter::paintHeading(const Canvas &c)
{
    const QRect line = c.layout.firstLine();
    c.painter->setPen(c.colours.text());
    c.painter->setFont(m_fonts.fit(9, c.scene.heading, line.width()).font);
    c.painter->drawText(line, Qt::AlignCenter, c.scene.heading);
}

void OverlayPainter::paintPlaces(const Canvas &c)
{
    const QRect plot = c.layout.plot();
    c.painter->setFont(m_fonts.font(8));
    const QFontMetrics metrics(c.painter->font());
    QVector<int> columns;
    int width = 0;
    for (const OverlayScene::Tick &tick : c.scene.places) {
        const int x = pixelOf(c.columns, tick.at);
        c.painter->setPen(QPen(c.colours.grid(), 1, Qt::DotLine));
        c.painter->drawLine(x, plot.top(), x, plot.bottom());
        c.painter->setPen(c.colours.axis());
        c.painter->drawLine(x, plot.bottom() + 2, x, plot.bottom() + 2 + tickLength);
        columns.append(x);
        width = std::max(width, metrics.horizontalAdvance(tick.text));
    }
    c.painter->setPen(c.colours.text());
    const QVector<int> labelled = labelledTicks(columns, width + labelGap, columns.size() - 1);
    for (const int k : labelled)
        c.painter->drawText(QRect(columns[k] - width, plot.bottom() + labelGap, 2 * width, labelHeight),
            Qt::AlignHCenter | Qt::AlignVCenter, c.scene.places[k].text);
}

void OverlayPainter::paintValues(const Canvas &c)
{
    const QRect plot = c.layout.plot();
    const int room = plot.left() - labelGap;
    const auto paintLabel = [&](int y, const QString &text) {
        c.painter->setFont(m_fonts.fit(8, text, room).font);
        c.painter->drawText(
            QRect(0, y - labelHeight / 2, room, labelHeight), Qt::AlignRight | Qt::AlignVCenter, text);
    };
    c.painter->setPen(c.colours.axis());
    c.painter->drawLine(plot.left() - 2, plot.top(), plot.left() - 2, plot.bottom());
    c.painter->drawLine(plot.left(), plot.bottom() + 2, plot.right(), plot.bottom() + 2);
    for (const OverlayScene::Tick &tick : c.scene.values) {
        const int y = pixelOf(c.heights, tick.at);
        c.painter->setPen(QPen(c.colours.grid(), 1, Qt::DotLine));
        c.painter->drawLine(plot.left(), y, plot.right(), y);
        c.painter->setPen(c.colours.text());
        paintLabel(y, tick.text);
    }
    c.painter->setPen(c.colours.text());
    paintLabel(plot.top() / 2, c.scene.unit);
}

const QPolygonF &OverlayPainter::outlineOf(
    const Canvas &c, int entry, const CoursePlace &place, const QRect &area)
{
    const OverlayRequest &request = c.request;
    const auto &course = request.entries[entry].course;
    Found &found = m_found[std::size_t(entry)];
    const Found::Key key(course, request.axis, request.value, place, area.left(), area.right());
    if (found.key != key)
        found = {key, courseOutline(*course, request.axis, request.value, place, area.left(), area.right())};
    return found.outline;
}

// In the device's own pixels, of which a curve uses each, however large the letters are. The emphasised one
// comes last, the others from the last to the first.
void OverlayPainter::paintCurves(const Canvas &c)
{
    const int count = c.request.entries.size();
    m_found.resize(std::size_t(count));
    const QRect plot = c.layout.plot();
    const QRect area(plot.topLeft() * c.scale, plot.bottomRight() * c.scale);
    const double perX = c.scale * c.columns.pDist() / c.columns.sDist();
    const double perY = -c.scale * c.heights.pDist() / c.heights.sDist();
    c.painter->save();
    c.painter->scale(1 / c.scale, 1 / c.scale);
    const auto draw = [&](int entry) {
        const CoursePlace place
            = {perX, c.columns.p1() * c.scale + (c.request.offsetOf(entry) - c.columns.s1()) * perX, perY,
                c.heights.p1() * c.scale - c.heights.s1() * perY};
        const OverlayScene::Line &line = c.scene.lines[entry];
        strokeOutline(c.painter, outlineOf(c, entry, place, area), area,
            QPen(line.colour, line.width, line.style), dashUnit * c.scale);
    };
    for (int entry = count - 1; entry >= 0; --entry)
        if (entry != c.request.picked)
            draw(entry);
    if (c.request.picked >= 0)
        draw(c.request.picked);
    c.painter->restore();
}

void OverlayPainter::paintLegend(const Canvas &c)
{
    for (int entry = 0; entry < c.scene.rows.size(); ++entry)
        paintRow(c, entry);
}

// The line as it is, the name, and below or beside it the figures, which are never cut before the name.
void OverlayPainter::paintRow(const Canvas &c, int entry)
{
    const QRect row = c.layout.row(entry);
    const OverlayScene::Row &texts = c.scene.rows[entry];
    const bool isPicked = entry == c.request.picked;
    if (isPicked)
        c.painter->fillRect(row, c.colours.highlight());
    const bool isHigh = row.height() >= twoLines;
    QRect name(row.left() + markWidth + textGap, row.top(), row.width() - markWidth - textGap,
        isHigh ? row.height() / 2 : row.height());
    const OverlayScene::Line &line = c.scene.lines[entry];
    const auto strokes = LineDashes(line.style, 0, 1).strokes(0, markWidth);
    for (const LineDashes::Stroke &stroke : strokes)
        c.painter->fillRect(QRect(row.left() + int(stroke.begin), name.center().y() - 1,
                                int(stroke.end) - int(stroke.begin), markHeight),
            line.colour);
    const QRect below = isHigh ? name.translated(0, name.height()) : name;
    const GraphFonts::Fit figures = m_fonts.fit(8, texts.figures, below.width());
    if (!isHigh)
        name.setRight(name.right() - figures.width - textGap);
    QFont font = m_fonts.font(8);
    font.setBold(isPicked);
    c.painter->setFont(font);
    c.painter->setPen(isPicked ? GraphColours::readable(line.colour, c.colours.highlight())
                               : c.colours.readable(line.colour));
    c.painter->drawText(name, Qt::AlignLeft | Qt::AlignVCenter,
        c.painter->fontMetrics().elidedText(texts.name, Qt::ElideMiddle, name.width()));
    c.painter->setFont(figures.font);
    c.painter->setPen(c.colours.text());
    c.painter->drawText(below, Qt::AlignRight | Qt::AlignVCenter, texts.figures);
}

void OverlayPainter::paintPointer(const Canvas &c)
{
    const QRect plot = c.layout.plot();
    const auto paintLine = [&](const std::optional<double> &place, Qt::PenStyle style) {
        if (!place)
            return;
        const int x = pixelOf(c.columns, *place);
        c.painter->setPen(QPen(c.colours.axis(), 1, style));
        if (x >= plot.left() && x <= plot.right())
            c.painter->drawLine(x, plot.top(), x, plot.bottom());
    };
    paintLine(c.request.marked, Qt::DashLine);
    paintLine(c.request.cursor, Qt::SolidLine);
    if (c.request.rubberBand.isEmpty())
        return;
    QColor fill = c.colours.current();
    c.painter->setPen(QPen(fill, 1, Qt::DashLine));
    fill.setAlpha(40);
    c.painter->setBrush(fill);
    c.painter->drawRect(c.request.rubberBand.adjusted(0, 0, -1, -1));
}

void OverlayPainter::paintReason(const Canvas &c)
{
    if (c.scene.reason.isEmpty())
        return;
    c.painter->setPen(c.colours.text());
    c.painter->setFont(m_fonts.font(9));
    c.painter->drawText(c.layout.plot(), Qt::AlignCenter | Qt::TextWordWrap, c.scene.reason);
}
