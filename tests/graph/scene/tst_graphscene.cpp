#include "graph/scene/graphscene.h"
#include "data/varnel3data.h"
#include "graph/scene/celllegend.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/scene/timedivision.h"
#include "graph/scene/valuerange.h"
#include "support/columns.h"
#include "support/graphcase.h"
#include "support/pixels.h"
#include "support/vision.h"

namespace {

QString legend(const QVector<GraphScene::Entry> &entries)
{
    QStringList texts;
    for (const GraphScene::Entry &entry : entries)
        texts.append(entry.name + QLatin1Char(' ') + entry.value + QLatin1Char(' ') + entry.colour.name()
            + (entry.marked ? " marked" : "")
            + (entry.style > Qt::SolidLine ? " style " + QString::number(entry.style) : QString()));
    return texts.join(QStringLiteral(", "));
}

QStringList described(const GraphScene &scene)
{
    QString text;
    QTextStream out(&text);
    const auto areaOf = [](const auto &part) { return part.area == PlotArea::Upper ? "U " : "L "; };
    for (const GraphScene::Curve &curve : scene.curves)
        out << areaOf(curve) << "curve " << curve.series << " from " << curve.first << ' ' << curve.name
            << ": " << curve.range.low << ".." << curve.range.high << " in " << curve.unit << " x"
            << curve.factor << " ." << curve.decimals << ' ' << curve.colour.name() << ' ' << curve.width
            << (curve.style > Qt::SolidLine ? " style " + QString::number(curve.style) : QString()) << '\n';
    for (const GraphScene::Axis &axis : scene.axes)
        out << areaOf(axis) << (axis.side == GraphScene::Side::Left ? "left: " : "right: ") << axis.range.low
            << ".." << axis.range.high << ' ' << axis.unit << " ." << axis.decimals << " of "
            << axis.fieldWidth << ' ' << axis.colour.name() << '\n';
    out << "U legend " << scene.cellHeading << scene.cellUnit << ": " << legend(scene.upperLegend) << '\n'
        << "L legend: " << legend(scene.lowerLegend) << "\nempty: " << scene.upperReason;
    return text.split(QLatin1Char('\n'));
}

QTextStream &operator<<(QTextStream &out, const QRect &rect)
{
    return out << rect.left() << ',' << rect.top() << '-' << rect.right() << ',' << rect.bottom() << ' ';
}

QTextStream &operator<<(QTextStream &out, const Interval &interval)
{
    return out << interval.low << ".." << interval.high << ' ';
}

template <typename Value>
QTextStream &operator<<(QTextStream &out, const QVector<Value> &values)
{
    for (const Value &value : values)
        out << value << ' ';
    return out;
}

template <typename... Values>
QString text(const Values &...values)
{
    QString text;
    QTextStream out(&text);
    out.setRealNumberPrecision(9);
    (out << ... << values);
    return text.trimmed();
}

// Where everything lies, and how the values of the lower plot are divided.
QString places(const QSize &size)
{
    const GraphLayout layout(size, 100);
    if (!layout.isDrawable())
        return QStringLiteral("no room");
    return text(layout.area(PlotArea::Upper), layout.area(PlotArea::Lower), "| ", layout.legend(),
        layout.legend(PlotArea::Upper), layout.legend(PlotArea::Lower), "| ",
        layout.valueHeights(PlotArea::Lower));
}

QString ticks(int width, int records)
{
    const GraphLayout layout(QSize(width, 300), records);
    return text(layout.majorTicks(), ' ', layout.zoomedMajorTicks(), ' ', layout.pixelsPerRecord());
}

// The columns, both lines of the heading, the first and the last row, and what is left for the lower plot.
QString places(const QSize &size, int cells)
{
    const CellLegend legend(GraphLayout(size, 100), cells);
    const int perColumn = (cells + legend.columns() - 1) / legend.columns();
    for (int cell = 0; cell < cells; ++cell) {
        const QRect row = legend.row(cell);
        const QRect above = cell % perColumn == 0 ? legend.heading(1) : legend.row(cell - 1);
        if (legend.cellAt(row.topLeft()) != cell || legend.cellAt(row.bottomRight()) != cell
            || row.top() != above.bottom() + 1)
            return text("gap or overlap at ", cell);
    }
    return text(legend.columns(), ": ", legend.heading(0), legend.heading(1), legend.row(0),
        legend.row(cells - 1), legend.below(),
        qMax(legend.cellAt(legend.heading(1).bottomLeft()),
            legend.cellAt(legend.row(cells - 1).bottomLeft() + QPoint(0, 1))));
}

QString shown(const GraphZoom &zoom)
{
    const QString shares = text(zoom.share(PlotArea::Upper), zoom.share(PlotArea::Lower));
    return zoom.isActive() ? text(zoom.times(), shares) : QStringLiteral("all ") + shares;
}

QString labelled(int ticks, int spacing, int last)
{
    QVector<int> columns;
    for (int i = 0; i < ticks; ++i)
        columns.append(40 + i * spacing);
    return text(labelledTicks(columns, 47, last));
}

} // namespace

class TestGraphScene : public QObject {
    Q_OBJECT

private slots:
    void shows_data();
    void shows();
    void distinctLinesAreToldByAll();
    void areAsExpected();
};

/// What stands in a graph, by its records and what is asked: the lines that match `part`.
void TestGraphScene::shows_data()
{
    const auto add = columnsOf<QString, QString, QString>({"graph", "part", "lines"});
    add("20", ".", R"(U curve 1 from 0 Voltage: 11.345..11.645 in V x1 .2 #00ff00 1
U curve 6 from 0 dV: 0..21.0833 in mV/min x1 .1 #ffff00 1
L curve 2 from 0 Current: 0..2.75 in A x1 .2 #00ffff 1
L curve 4 from 0 Temp.: 24..28 in °C x1 .1 #ff0000 1
L curve 5 from 17 Ri: 38.8..46.8 in mΩ x1 .0 #c71585 1
U left: 11.345..11.645 V .2 of 5 #00ff00
U right: 0..21.0833 mV/min .1 of 5 #ffff00
L right: 0..2.75 A .2 of 5 #00ffff
L left: 24..28 °C .1 of 4 #ff0000
U legend : Voltage 11,59 V #00ff00, dV 19,2 mV/min #ffff00
L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 40 mΩ #c71585
empty: )");
    add("20 white delta=2", "curve|U [rl]", R"(U curve 1 from 0 Voltage: 11.345..11.645 in V x1 .2 #00ff00 2
U curve 3 from 0 Energy: 0..2090 in mAh x1 .0 #ffd700 2
L curve 2 from 0 Current: 0..2.75 in A x1 .2 #007af5 2
L curve 4 from 0 Temp.: 24..28 in °C x1 .1 #ff0000 2
L curve 5 from 17 Ri: 38.8..46.8 in mΩ x1 .0 #c71585 2
U left: 11.345..11.645 V .2 of 5 #00ff00
U right: 0..2090 mAh .0 of 5 #ffd700
U legend : Voltage 11,59 V #00ff00, Energy 1.900 mAh #ffd700)");
    add("20 delta=0 T=0 Rw=0", ".", R"(U curve 1 from 0 Voltage: 11.345..11.645 in V x1 .2 #00ff00 1
L curve 2 from 0 Current: 0..2.75 in A x1 .2 #00ffff 1
U left: 11.345..11.645 V .2 of 5 #00ff00
L right: 0..2.75 A .2 of 5 #00ffff
U legend : Voltage 11,59 V #00ff00
L legend: Current 2,50 A #00ffff
empty: )");
    add("20 ranged=1", "U left", R"(U left: 11.25..11.55 V .2 of 5 #00ff00)");
    add("17 distinct", "dV|Ri", R"(U legend : Voltage 11,56 V #00ff00, dV --,- mV/min #c06000 style 2)");
    add("18", "dV|Ri", R"(U curve 6 from 0 dV: 0..1.25 in mV/min x1 .1 #ffff00 1
L curve 5 from 17 Ri: 38.8..46.8 in mΩ x1 .0 #c71585 1
U legend : Voltage 11,57 V #00ff00, dV 0,0 mV/min #ffff00
L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 40 mΩ #c71585)");
    add("19 voltage=12000 voltage@18=12099", "U legend",
        R"(U legend : Voltage 12,10 V #00ff00, dV 99,0 mV/min #ffff00)");
    add("19 voltage=12000 voltage@18=12100", "U legend",
        R"(U legend : Voltage 12,10 V #00ff00, dV 100 mV/min #ffff00)");
    add("19 voltage=12000 voltage@18=11900", "U legend",
        R"(U legend : Voltage 11,90 V #00ff00, dV -100 mV/min #ffff00)");
    add("20 mode@19=1", "Ri", ""); // ended in a discharge
    add("20 resistance=0", "Ri", "");
    add("40 resistance@20-39=0", "L legend",
        R"(L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri --,- mΩ #c71585)");
    add("20 resistance@0-17=0", "Ri", R"(L curve 5 from 17 Ri: -4.92857..27.9286 in mΩ x1 .0 #c71585 1
L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 23 mΩ #c71585)");
    add("20 temperature@19=0", "Temp|C ", ""); // a sensor that was lost
    add("3 B picked=1", "^U|^e", R"(U curve 12 from 0 Cell 2: 3.3..4.35 in V x1 .3 #00bb00 2
U curve 11 from 0 Cell 1: 3.3..4.35 in V x1 .3 #ff0022 1
U curve 13 from 0 Cell 3: 3.3..4.35 in V x1 .3 #0066ff 1
U left: 3.3..4.35 V .2 of 4 #ffffff
U legend Voltage:V: 1 3,790 #ff0022, 2 3,800 #00bb00 marked, 3 3,810 #0066ff
empty: )");
    add("3 B picked=1 white select=1", "^U|^e", R"(U curve 12 from 0 Cell 2: 3.3..4.35 in V x1 .3 #00bb00 1
U left: 3.3..4.35 V .2 of 4 #000000
U legend Voltage:V: 1 3,790 #ff0022, 2 3,800 #00bb00 marked, 3 3,810 #0066ff
empty: )");
    add("3 B picked=1 select=2", "curve 1.|^e", R"(U curve 11 from 0 Cell 1: 3.3..4.35 in V x1 .3 #ff0022 1
U curve 13 from 0 Cell 3: 3.3..4.35 in V x1 .3 #0066ff 1
empty: )");
    add("3 B select=1 type@1=77", "curve 1.|left: 3|^e", R"(U left: 3.3..4.35 V .2 of 4 #ffffff
empty: No cell is selected.)");
    add("3 B picked=0 picked=1 picked=2 select=2", "curve 1.|^e", R"(empty: All cells are hidden.)");
    add("20 B quantity=1 balancing=1000 balance2=100", "U legend",
        R"(U legend Charge:Ah: 1 0,000 #ff0022, 2 0,000 #00bb00, 3 0,316 #0066ff)");
    // Sixteen that are seen on either ground and differ.
    add("3 B cells=16 white", "U legend",
        "U legend Voltage:V: 1 3,790 #ff0022, 2 3,800 #00bb00, 3 3,810 #0066ff, 4 3,820 #ff8800, "
        "5 3,830 #ee00ff, 6 3,840 #00bbaa, 7 3,850 #aaaa00, 8 3,860 #775522, 9 3,870 #66aaff, "
        "10 3,880 #aa2244, 11 3,890 #116611, 12 3,900 #773388, 13 3,910 #cc99aa, 14 3,920 #225566, "
        "15 3,930 #2200ff, 16 3,940 #ff11aa");
    add("3 B quantity=2 r0@1=3 r1@1=1", "U legend",
        R"(U legend Ri:mΩ: 1 3,0 #ff0022, 2 1,0 #00bb00, 3 --,- #0066ff)");
    add("3 B select=2 picked=1 min@1=3000 max@1=4500 v1@2=4900", "left: 3",
        R"(U left: 3..4.9 V .2 of 4 #ffffff)"); // hidden ones
    add("3 B cells=8 distinct",
        "Cell [2348]:", R"(U curve 12 from 0 Cell 2: 3.3..4.35 in V x1 .3 #ffb000 1 style 2
U curve 13 from 0 Cell 3: 3.3..4.35 in V x1 .3 #40a0ff 1 style 3
U curve 14 from 0 Cell 4: 3.3..4.35 in V x1 .3 #c03090 1 style 4
U curve 18 from 0 Cell 8: 3.3..4.35 in V x1 .3 #c03090 1)");
    add("3 Avg", "^U|^e", R"(U curve 8 from 0 Max: 3.3..4.35 in V x1 .3 #ff0022 1
U curve 9 from 0 Avg: 3.3..4.35 in V x1 .3 #00bb00 1
U curve 7 from 0 Min: 3.3..4.35 in V x1 .3 #0066ff 1
U curve 10 from 0 Delta: 0..0.0325 in mV x1000 .0 #ff8800 1
U left: 3.3..4.35 V .2 of 4 #ffffff
U right: 0..32.5 mV .0 of 4 #ff8800
U legend Voltage:V: Max 3,810 #ff0022, Avg 3,800 #00bb00, Min 3,790 #0066ff, Delta 20 mV #ff8800
empty: )");
    add("3 Avg max@1=4600", "U (right|left)", R"(U left: 3.3..4.6 V .2 of 4 #ffffff
U right: 20..891 mV .0 of 4 #ff8800)");
    add("3 Avg white", "Max:|left: 3", R"(U curve 8 from 0 Max: 3.3..4.35 in V x1 .3 #ff0022 2
U left: 3.3..4.35 V .2 of 4 #000000)");
    add("3 Avg celldata=0", "^U|^e", R"(U legend : 
empty: This recording has no cell data.)");
}

void TestGraphScene::shows()
{
    QFETCH(QString, graph);
    QFETCH(QString, part);
    QLocale::setDefault(QLocale::German);
    const GraphCase shown(graph);
    const QStringList lines = described(GraphScene::of(shown.request())).filter(QRegularExpression(part));
    QTEST(lines.join(QLatin1Char('\n')), "lines");
}

/// Without seeing red or green, on either ground; cells of one tone by their dashes.
void TestGraphScene::distinctLinesAreToldByAll()
{
    for (const char *view : {"20", "20 delta=2", "20 B cells=16", "20 Avg"}) {
        for (const char *ground : {" distinct", " distinct white"}) {
            const GraphCase shown(QLatin1String(view) + QLatin1String(ground));
            const QColor background = shown.request().switches.blackBackground ? Qt::black : Qt::white;
            const GraphScene scene = GraphScene::of(shown.request());
            const auto entries = scene.upperLegend + scene.lowerLegend;
            QCOMPARE(scene.curves.size(), entries.size());
            for (int i = 0; i < scene.curves.size(); ++i) {
                const GraphScene::Curve &a = scene.curves[i];
                QVERIFY(contrast(a.colour, background) >= 3);
                const GraphScene::Entry &entry = entries[i];
                QVERIFY(entry.colour == a.colour && entry.style == a.style && a.name.endsWith(entry.name));
                for (int j = 0; j < i; ++j) {
                    const GraphScene::Curve &b = scene.curves[j];
                    if (b.area != a.area
                        || (a.colour == b.colour && a.series >= SeriesStore::Cell1 && a.style != b.style))
                        continue;
                    QVERIFY2(leastDistance(a.colour, b.colour) >= 25, qPrintable(a.name + b.name));
                    QVERIFY(a.series >= SeriesStore::Cell1 || a.style != b.style);
                }
            }
        }
    }
}

void TestGraphScene::areAsExpected()
{
    const auto add = [](const QString &actual, const char *expected) { QCOMPARE(actual, QString(expected)); };
    add(places({1000, 600}),
        "40,22-900,289 40,304-900,571 | 942,22-999,575 942,22-999,289 942,304-999,571 | "
        "571 533 495 457 418 380 342 304");
    add(places({141, 68}), "40,22-41,23 40,38-41,39 | 83,22-140,43 83,22-140,23 83,38-140,39 | 39 38");
    add(places({140, 68}), "no room");
    add(places({141, 67}), "no room");

    // divisions of the times
    add(ticks(500, 100) + " | " + ticks(501, 100), "4 8 3.6 | 8 8 3.61");
    add(ticks(449, 100) + " | " + ticks(450, 100), "4 4 3.09 | 4 8 3.1");
    add(ticks(1000, 3) + " | " + ticks(1000, 8), "2 8 286.666667 | 7 8 107.5");
    add(ticks(1000, 1) + " | " + ticks(1000, 0), "0 8 860 | 0 8 0");

    // ends of the maps, of a single moment and a clock that was set back too
    const GraphLayout layout(QSize(1000, 600), 100);
    for (const Interval &times : {Interval{10, 20}, {5, 5}, {20, 10}}) {
        const QwtScaleMap map = layout.timeMap(times.low, times.high);
        add(text(map.transform(times.low), ' ', map.transform(times.length() != 0 ? times.high : 6)),
            "40 900");
    }
    const QwtScaleMap values = layout.valueMap(PlotArea::Lower, 1, 3);
    add(text(values.transform(1), ' ', values.transform(3)), "571 304");
    const auto scale = [](int width, int height, double wanted) {
        return text(GraphLayout::fittingScale({width, height}, wanted));
    };
    add(scale(1000, 600, 1.75) + ' ' + scale(480, 600, 2.0), "1.75 1.5"); // narrow
    add(scale(1000, 250, 2.0) + ' ' + scale(200, 100, 2.0) + ' ' + scale(1000, 600, 0.5), "1.25 1 1"); // low

    // cells: few, many, on into the lower half, close, in two columns
    add(places({1000, 600}, 6),
        "1: 942,22-999,38 942,39-999,55 942,56-999,72 942,141-999,157 942,304-999,571 -1");
    add(places({1000, 600}, 16),
        "1: 942,22-999,35 942,36-999,50 942,51-999,64 942,274-999,288 942,304-999,571 -1");
    add(places({460, 460}, 16), // at its lowest beside the upper plot
        "1: 402,22-459,32 402,33-459,43 402,44-459,54 402,209-459,219 402,234-459,431 -1");
    add(places({300, 202}, 8), // and in one column
        "1: 242,22-299,31 242,32-299,41 242,42-299,49 242,101-299,109 242,112-299,177 -1");
    add(places({460, 300}, 16),
        "1: 402,22-459,31 402,32-459,41 402,42-459,51 402,197-459,206 402,210-459,275 -1");
    add(places({360, 236}, 16),
        "2: 294,22-359,31 294,32-359,41 294,42-324,50 325,105-359,113 302,122-359,207 -1");
    add(places({300, 200}, 4),
        "1: 242,22-299,32 242,33-299,43 242,44-299,54 242,78-299,88 242,104-299,171 -1");
    add(places({300, 120}, 4), "1: 242,22-299,31 242,32-299,41 242,42-299,47 242,60-299,65 242,68-299,95 -1");
    add(places({300, 120}, 5), "2: 234,22-299,31 234,32-299,41 234,42-264,49 265,50-299,57 242,68-299,95 -1");
    add(places({300, 200}, 0),
        "1: 242,22-299,38 242,39-299,55 242,56-299,72 242,56-299,72 242,104-299,171 -1");

    // zooms: what mouse and keys hardly reach
    constexpr Interval whole = {0, 1000};
    GraphZoom zoom;
    zoom.moveTimes(100, whole);
    zoom.moveValues(0.125, PlotArea::Upper);
    add(shown(zoom), "all 0..1 0..1");
    zoom.show({0, 0}, PlotArea::Upper, {0, 0.5}, {5, 5}); // a recording without duration
    add(shown(zoom), "all 0..1 0..1");
    zoom.zoomTimes(4, 200, whole);
    zoom.zoomTimes(0.2, 200, whole);
    add(shown(zoom), "all 0..1 0..1");
    zoom.zoomValues(1e6, PlotArea::Upper, 0.5, {0, 1});
    add(shown(zoom), "0..1 0.4995..0.5005 0..1");
    zoom.show({500, 501}, PlotArea::Lower, {0.5, 0.5001}, whole); // too short
    add(shown(zoom), "495.5..505.5 0.4995..0.5005 0.49955..0.50055");
    zoom.setTimes({400, 401}, whole);
    zoom.moveValues(7, PlotArea::Upper);
    add(shown(zoom), "395.5..405.5 0.999..1 0.49955..0.50055");
    zoom.show({0, 500}, PlotArea::Lower, {0.5, 0.5}, whole); // nothing
    add(shown(zoom), "0..500 0.999..1 0..1");
    zoom.show(whole, PlotArea::Upper, {0, 0.5}, whole);
    add(shown(zoom), "0..1000 0..0.5 0..1");
    zoom.show(whole, PlotArea::Upper, {0, 1}, whole);
    add(shown(zoom), "all 0..1 0..1");

    // ranges
    using namespace ValueRange;
    for (const double unit : {1.0, 1000.0}) {
        const std::tuple<double, double, const char *> currents[] = {{1.0, 2.0, "1..2.2"},
            {1.0, 1.25, "1..1.375"}, {1.0, 1.2, "0.875..1.325"}, // narrow
            {0.05, 0.2, "0..0.325"}, {0.5, 0.5 + 1.0 / 512, "0.375..0.626953125"},
            {0.5, 0.5 + 1.0 / 1024, "0..0.551074219"}, {0.25, 0.25, "0..0.275"}, // constant
            {0.1, 0.1, "0..0.225"}, {0.0, 0.0, "0..0.125"}, {-1.0, 1.0, "-1..1.1"}, {-2.0, -1.0, "-2.2..-1"},
            {-0.2, -0.05, "-0.325..0"}, {-2.0, -2.0, "-2.2..0"}, {-2.0, 0.0, "-2.2..0"}};
        for (const auto &[minimum, maximum, expected] : currents) {
            const Interval range = ofCurrent(minimum * unit, maximum * unit, unit);
            add(text(Interval{range.low / unit, range.high / unit}), expected);
        }
    }
    add(text(ofVoltage(46.3, 46.8), ofVoltage(66.0, 66.05), ofVoltage(7.4, 7.4), ofVoltage(0, 10)),
        "46.25..46.85 65.875..66.175 7.25..7.55 0..11");
    add(text(ofVoltage(-1, 9)), "-2..10");
    add(text(ofEnergy(0, 900), ofEnergy(900, 1900), ofEnergy(900, 900), ofEnergy(0, 0)),
        "0..990 800..2000 899..911 0..11");
    add(text(ofTemperature(23.2, 24.2), ofTemperature(23, 47), ofTemperature(23.3, 47.4),
            ofTemperature(-8.5, 0.2)),
        "22..26 23..47 23..48 -9..1");
    add(text(ofSlope(-1, 1, 10), ofSlope(-20, -5, 10)),
        "-2.25..2.25 -22..-5"); // a falling voltage is what counts
    add(text(ofResistance(43, 43, {0.95, 0.95}), ofResistance(5, 5, {0.95, 0.95})), "41.71..50.31 4.7..6.7");
    add(text(ofResistance(40, 54, {0.95, 0.97}), ofResistance(40, 45, {0.43, 0.43})),
        "37..57 38.9285714..46.0714286");
    add(text(ofResistance(40, 52, {0.15, 0.5})), "35..55"); // its lowest place is taken
    add(text(ofResistance(40, 52, {0.45, 0.85})), "37..57"); // the highest
    add(text(ofResistance(40, 52, {0.15, 0.25}), ofResistance(40, 52, {0.75, 0.85}), // two
            ofResistance(40, 52, {0.22, 0.5}), ofResistance(22, 26, {0.12, 0.52})), // none; all, more or less
        "31.6..55.6 36.4..60.4 37.4285714..54.5714286 19.2..27.2");
    add(text(ofCells(3.5, 4.2, 5), ofCells(2.9, 4.4, 5)), "3.3..4.35 2.9..4.4");
    add(text(ofCells(1.0, 1.5, Varnel3Data::noCellType)), "0.95..1.55");

    // round times
    add(text(timeDivisions(3.5, 13.5, 8)), "4 6 8 10 12");
    add(text(timeDivisions(60, 120, 4)), "60 75 90 105 120");
    add(text(timeDivisions(-70, 50, 4)), "-60 -30 0 30");
    add(text(timeDivisions(5, 5, 8)), "");
    add(text(timeDivisions(0, 9, 0)), "");
    QVector<double> steps; // what three pieces are divided by, and the next longer one
    for (double step = 1; step < 400000; step = timeDivisions(0, 3 * step + 0.5, 3).value(1, 1e9))
        steps.append(timeDivisions(0, 3 * step, 3).constLast() / 3);
    add(text(steps),
        "1 2 5 10 15 20 30 60 120 300 600 900 1200 1800 3600 7200 10800 14400 21600 43200 86400 172800 "
        "345600");

    // labels that don't touch
    add(labelled(5, 47, 0) + " | " + labelled(9, 46, 0), "0 1 2 3 4 | 0 2 4 6 8");
    add(labelled(9, 16, 0) + " | " + labelled(5, 11, 0),
        "2 5 8 | 4"); // every third, the last too; that alone
    add(labelled(9, 16, 1), "1 4 7");
    add(labelled(5, 40, 14) + " | " + labelled(5, 40, 15), "0 2 4 | 1 3"); // even numbers, moved on
    add(labelled(5, 0, 0) + " | " + labelled(1, 0, 0) + " | " + labelled(0, 0, 0), "4 | 0 | ");

    // neighbours, of which the first has a contrast of 4.5 to its background, the second not
    const char *const colours[][3] = {{"#767676", "#ffffff", "#767676"}, {"#777777", "#ffffff", "#727272"},
        {"#ee0000", "#ffffff", "#ee0000"}, {"#ef0000", "#ffffff", "#e50000"},
        {"#008a00", "#ffffff", "#008a00"}, {"#008b00", "#ffffff", "#008100"},
        {"#6161ff", "#ffffff", "#6161ff"}, {"#6262ff", "#ffffff", "#5858ff"},
        {"#757575", "#000000", "#757575"}, {"#747474", "#000000", "#797979"},
        {"#eb0000", "#000000", "#eb0000"}, {"#ea0000", "#000000", "#f40000"},
        {"#0000ff", "#000000", "#6666ff"}, {"#00c100", "#3c3c3c", "#00c100"},
        {"#00c000", "#3c3c3c", "#00ca00"}, {"#ffff00", "#dee2e6", "#666600"},
        {"#777777", "#777777", "#070707"}, {"#fcfcfc", "#757575", "#ffffff"}};
    for (const auto &[colour, background, text] : colours)
        add(GraphColours::readable(QColor(colour), QColor(background)).name(), text);
}

QTEST_APPLESS_MAIN(TestGraphScene)
#include "tst_graphscene.moc"
