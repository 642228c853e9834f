#include "graph/scene/graphscene.h"

#include "data/figuretext.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphrequest.h"
#include "graph/scene/valuerange.h"
#include "series/seriesstore.h"

#include <cmath>

namespace {

constexpr double milli = 1000.0;
constexpr int emphasis = 2; // px, pen of a selected cell
constexpr double slopeUnit = 10.0; // mV/min; a course of a few of them is real
constexpr double deltaUnit = 0.1; // V; cells drift by millivolts

GraphColours coloursOf(const GraphRequest &request)
{
    return GraphColours(request.switches.blackBackground, request.switches.distinctLines);
}

Varnel3Data newestOf(const GraphRequest &request)
{
    return request.store->records().last();
}

bool isCellShown(const GraphRequest &request, int cell)
{
    const bool selected = request.selectedCells[size_t(cell)];
    return request.switches.cellsShown == CellsShown::All
        || selected == (request.switches.cellsShown == CellsShown::Selected);
}

QString cellFigure(const SeriesStore &store, int cell, CellValue value)
{
    const Varnel3Data record = store.records().last();
    const CellData &newest = record.cells[cell];
    switch (value) {
    case CellValue::Charge:
        return FigureText::fixed(newest.balanceCharge / Varnel3Data::chargePerMah / milli, 3);
    case CellValue::Resistance: // which most lines don't bring
        return store.knownResistance(cell) > 0 ? FigureText::fixed(store.knownResistance(cell), 1)
                                               : FigureText::shortDashes();
    case CellValue::Voltage:
        break;
    }
    return FigureText::fixed(newest.voltage / milli, 3);
}

// The lowest and the highest value that the axes cover.
Interval courseOf(const GraphRequest &request, int kind)
{
    const PlotSeries &values = request.store->series(kind);
    if (request.rangedRecords > 0 && request.rangedRecords < values.size())
        return values.extremes(0, request.rangedRecords);
    return {values.minimum(), values.maximum()};
}

Interval currentRange(const GraphRequest &request)
{
    const Interval course = courseOf(request, SeriesStore::Current);
    return ValueRange::ofCurrent(course.low, course.high);
}

// Extremes over all cells, so that a cell keeps its place when others are hidden.
Interval cellRange(const GraphRequest &request)
{
    Interval course = courseOf(request, SeriesStore::CellMin);
    course.take(courseOf(request, SeriesStore::CellMax));
    for (int i = 0; i < request.store->cellSeriesCount(); ++i)
        course.take(courseOf(request, SeriesStore::Cell1 + i));
    return ValueRange::ofCells(
        course.low, course.high, request.store->records().figure(RecordColumns::CellType, 0));
}

} // namespace

GraphScene GraphScene::of(const GraphRequest &request)
{
    GraphScene scene;
    const ViewSwitches &switches = request.switches;
    if (!switches.balancer) {
        scene.addVoltage(request);
        if (switches.rightAxis == RightAxis::Slope)
            scene.addSlope(request);
        else if (switches.rightAxis == RightAxis::Energy)
            scene.addEnergy(request);
    } else if (!request.store->hasCellData()) {
        scene.upperReason = tr("This recording has no cell data.");
    } else if (switches.average) {
        scene.addStatistics(request);
    } else {
        scene.addCells(request);
    }
    scene.addCurrent(request);
    if (switches.temperature && newestOf(request).temperature != 0)
        scene.addTemperature(request);
    if (switches.resistance)
        scene.addResistance(request);
    return scene;
}

void GraphScene::addVoltage(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const PlotSeries &values = request.store->series(SeriesStore::Voltage);
    const Interval course = courseOf(request, SeriesStore::Voltage);
    const Interval range = ValueRange::ofVoltage(course.low, course.high);
    curves.append({PlotArea::Upper, SeriesStore::Voltage, 0, range, colours.voltage(), colours.style(0),
        colours.curveWidth(), tr("Voltage"), tr("V")});
    axes.append({PlotArea::Upper, Side::Left, range, tr("V"), 2, 5, colours.voltage()});
    upperLegend.append(
        {tr("Voltage"), FigureText::fixed(values.last(), 2) + tr(" V"), colours.voltage(), colours.style(0)});
}

void GraphScene::addSlope(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const PlotSeries &values = request.store->series(SeriesStore::Dv);
    if (request.store->size() <= SeriesStore::firstResistance()) { // no value yet
        upperLegend.append(
            {tr("dV"), FigureText::shortDashes() + tr(" mV/min"), colours.slope(), colours.style(1)});
        return;
    }
    const Interval course = courseOf(request, SeriesStore::Dv);
    const Interval range = ValueRange::ofSlope(course.low, course.high, slopeUnit);
    curves.append({PlotArea::Upper, SeriesStore::Dv, 0, range, colours.slope(), colours.style(1),
        colours.curveWidth(), tr("dV"), tr("mV/min"), 1.0, 1});
    axes.append({PlotArea::Upper, Side::Right, range, tr("mV/min"), 1, 5, colours.slope()});
    upperLegend.append(
        {tr("dV"), FigureText::fixed(values.last(), std::abs(values.last()) < 100 ? 1 : 0) + tr(" mV/min"),
            colours.slope(), colours.style(1)});
}

void GraphScene::addEnergy(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const PlotSeries &values = request.store->series(SeriesStore::Energy);
    const Interval course = courseOf(request, SeriesStore::Energy);
    const Interval range = ValueRange::ofEnergy(course.low, course.high);
    curves.append({PlotArea::Upper, SeriesStore::Energy, 0, range, colours.slope(), colours.style(1),
        colours.curveWidth(), tr("Energy"), tr("mAh"), 1.0, 0});
    axes.append({PlotArea::Upper, Side::Right, range, tr("mAh"), 0, 5, colours.slope()});
    upperLegend.append(
        {tr("Energy"), FigureText::fixed(values.last(), 0) + tr(" mAh"), colours.slope(), colours.style(1)});
}

void GraphScene::addCells(const GraphRequest &request)
{
    const SeriesStore &store = *request.store;
    const GraphColours colours = coloursOf(request);
    const ViewSwitches &switches = request.switches;
    const Interval range = cellRange(request);
    const bool emphasise = switches.cellsShown == CellsShown::All;
    for (bool selected : {true, false}) { // the picked ones on top
        for (int i = 0; i < store.cellSeriesCount(); ++i) {
            if (request.selectedCells[size_t(i)] != selected || !isCellShown(request, i))
                continue;
            const int width = selected && emphasise ? emphasis : 1;
            curves.append({PlotArea::Upper, SeriesStore::Cell1 + i, 0, range, colours.cell(i),
                colours.cellStyle(i), width, tr("Cell ") + QString::number(i + 1), tr("V"), 1.0, 3});
        }
    }
    if (curves.isEmpty())
        upperReason = switches.cellsShown == CellsShown::Selected ? tr("No cell is selected.")
                                                                  : tr("All cells are hidden.");
    axes.append({PlotArea::Upper, Side::Left, range, tr("V"), 2, 4, colours.text()});

    const char *const headings[]
        = {QT_TRANSLATE_NOOP("GraphScene", "Voltage:"), QT_TRANSLATE_NOOP("GraphScene", "Charge:"), "Ri:"};
    const char *const units[] = {"V", "Ah", "m\u03a9"};
    cellHeading = tr(headings[int(switches.cellValue)]);
    cellUnit = tr(units[int(switches.cellValue)]);
    for (int i = 0; i < store.cellSeriesCount(); ++i) {
        upperLegend.append({QString::number(i + 1), cellFigure(store, i, switches.cellValue), colours.cell(i),
            colours.cellStyle(i), request.selectedCells[size_t(i)]});
    }
}

void GraphScene::addStatistics(const GraphRequest &request)
{
    const SeriesStore &store = *request.store;
    const GraphColours colours = coloursOf(request);
    const Interval range = cellRange(request);
    cellHeading = tr("Voltage:");
    cellUnit = tr("V");
    const Interval deltas = courseOf(request, SeriesStore::CellDelta);
    const Interval deltaRange = ValueRange::ofCurrent(deltas.low, deltas.high, deltaUnit);
    struct Row {
        int series;
        QString name;
        Interval range;
        QColor colour;
        int place; // of its style
    };
    const Row rows[] = {{SeriesStore::CellMax, tr("Max"), range, colours.cellMax(), 1},
        {SeriesStore::CellAverage, tr("Avg"), range, colours.cellAverage(), 0},
        {SeriesStore::CellMin, tr("Min"), range, colours.cellMin(), 2},
        {SeriesStore::CellDelta, tr("Delta"), deltaRange, colours.cellDelta(), 3}};
    for (const Row &row : rows) {
        const bool isDelta = row.series == SeriesStore::CellDelta;
        curves.append({PlotArea::Upper, row.series, 0, row.range, row.colour, colours.style(row.place),
            colours.curveWidth(), row.name, isDelta ? tr("mV") : tr("V"), isDelta ? milli : 1.0,
            isDelta ? 0 : 3});
        const double newest = store.series(row.series).last();
        upperLegend.append({row.name,
            isDelta ? FigureText::fixed(newest * milli, 0) + tr(" mV") : FigureText::fixed(newest, 3),
            row.colour, colours.style(row.place)});
    }
    axes.append({PlotArea::Upper, Side::Left, range, tr("V"), 2, 4, colours.text()});
    const Interval shownDelta = {deltaRange.low * milli, deltaRange.high * milli};
    axes.append({PlotArea::Upper, Side::Right, shownDelta, tr("mV"), 0, 4, colours.cellDelta()});
}

void GraphScene::addCurrent(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const PlotSeries &values = request.store->series(SeriesStore::Current);
    const Interval range = currentRange(request);
    curves.append({PlotArea::Lower, SeriesStore::Current, 0, range, colours.current(), colours.style(0),
        colours.curveWidth(), tr("Current"), tr("A")});
    axes.append({PlotArea::Lower, Side::Right, range, tr("A"), 2, 5, colours.current()});
    lowerLegend.append(
        {tr("Current"), FigureText::fixed(values.last(), 2) + tr(" A"), colours.current(), colours.style(0)});
}

void GraphScene::addTemperature(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const Interval course = courseOf(request, SeriesStore::Temperature);
    const Interval range = ValueRange::ofTemperature(course.low, course.high);
    curves.append({PlotArea::Lower, SeriesStore::Temperature, 0, range, colours.temperature(),
        colours.style(1), colours.curveWidth(), tr("Temp."), QStringLiteral("°C"), 1.0, 1});
    axes.append({PlotArea::Lower, Side::Left, range, QStringLiteral("°C"), 1, 4, colours.temperature()});
    lowerLegend.append(
        {tr("Temp."), FigureText::fixed(newestOf(request).temperature / 10.0, 1) + QStringLiteral(" °C"),
            colours.temperature(), colours.style(1)});
}

// Shown while charging only; a device that does not measure it sends nothing but zeros.
void GraphScene::addResistance(const GraphRequest &request)
{
    const GraphColours colours = coloursOf(request);
    const PlotSeries &values = request.store->series(SeriesStore::Resistance);
    const bool measured = values.minimum() != 0.0 || values.maximum() != 0.0;
    if (request.store->size() <= SeriesStore::firstResistance()
        || newestOf(request).mode != Varnel3Data::Charge || !measured)
        return;
    const Interval course = courseOf(request, SeriesStore::Resistance);
    const Interval current = courseOf(request, SeriesStore::Current);
    const Interval beside = currentRange(request);
    const Interval range = ValueRange::ofResistance(
        course.low, course.high, {beside.shareOf(current.low), beside.shareOf(current.high)});
    curves.append({PlotArea::Lower, SeriesStore::Resistance, SeriesStore::firstResistance(), range,
        colours.resistance(), colours.style(2), colours.curveWidth(), tr("Ri"), tr("m\u03a9"), 1.0, 0});
    const bool known = values.last() > 0.0; // with little current a device measures none
    lowerLegend.append(
        {tr("Ri"), (known ? FigureText::fixed(values.last(), 0) : FigureText::shortDashes()) + tr(" m\u03a9"),
            colours.resistance(), colours.style(2)});
}
