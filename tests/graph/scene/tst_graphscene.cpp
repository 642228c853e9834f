#include "graph/scene/graphscene.h"
#include "support/columns.h"
#include "support/graphcase.h"
#include "support/pixels.h"
#include "support/vision.h"

#include <QTextStream>
#include <QtTest>

namespace {

QString legend(const QVector<GraphScene::Entry> &entries)
{
    QStringList texts;
    for (const GraphScene::Entry &entry : entries)
        texts.append(entry.name + QLatin1Char(' ') + entry.value + QLatin1Char(' ') + entry.colour.name()
            + (entry.marked ? QStringLiteral(" marked") : QString()));
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

} // namespace

class TestGraphScene : public QObject {
    Q_OBJECT

private slots:
    void shows_data();
    void shows();
    void distinctLinesAreToldByAll();
};

/// What stands in a graph, by its records and what is asked: the lines that match `part`.
void TestGraphScene::shows_data()
{
    columns<QString, QString, QString>({"graph", "part", "lines"});
    const auto add = [](const char *graph, const char *part, const char *lines) {
        QTest::newRow(graph) << QString::fromUtf8(graph) << QString::fromUtf8(part)
                             << QString::fromUtf8(lines);
    };
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
    add("20 ranged=10", "U left", R"(U left: 11.295..11.595 V .2 of 5 #00ff00)");
    add("20 ranged=20", "U left", R"(U left: 11.345..11.645 V .2 of 5 #00ff00)");
    add("17", "dV|Ri", R"(U legend : Voltage 11,56 V #00ff00, dV --,- mV/min #ffff00)");
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
    add("20 mode@0-18=1", "L legend",
        R"(L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 40 mΩ #c71585)");
    add("20 resistance=0", "Ri", "");
    add("20 resistance@0-17=0", "Ri", R"(L curve 5 from 17 Ri: -4.92857..27.9286 in mΩ x1 .0 #c71585 1
L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 23 mΩ #c71585)");
    add("20 temperature@19=0", "Temp|C ", ""); // a sensor that was lost
    add("20 temperature@0-18=0", "Temp|C ", R"(L curve 4 from 0 Temp.: 0..7 in °C x1 .1 #ff0000 1
L left: 0..7 °C .1 of 4 #ff0000
L legend: Current 2,50 A #00ffff, Temp. 25,3 °C #ff0000, Ri 40 mΩ #c71585)");
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
    add("3 B select=1", "curve 1.|left: 3|^e", R"(U left: 3.3..4.35 V .2 of 4 #ffffff
empty: No cell is selected.)");
    add("3 B picked=0 picked=1 picked=2 select=2", "curve 1.|^e", R"(empty: All cells are hidden.)");
    add("20 B quantity=1 balancing=1000 balance2=100", "U legend",
        R"(U legend Charge:Ah: 1 0,000 #ff0022, 2 0,000 #00bb00, 3 0,316 #0066ff)");
    add("3 B quantity=2 r0@1=3 r1@1=4", "U legend",
        R"(U legend Ri:mΩ: 1 3,0 #ff0022, 2 4,0 #00bb00, 3 --,- #0066ff)");
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
            QCOMPARE(scene.curves.size(), scene.upperLegend.size() + scene.lowerLegend.size());
            for (int i = 0; i < scene.curves.size(); ++i) {
                const GraphScene::Curve &a = scene.curves[i];
                QVERIFY(contrast(a.colour, background) >= 3);
                const auto &entries = a.area == PlotArea::Upper ? scene.upperLegend : scene.lowerLegend;
                const GraphScene::Entry &entry
                    = entries[a.area == PlotArea::Upper ? i : i - scene.upperLegend.size()];
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

QTEST_APPLESS_MAIN(TestGraphScene)
#include "tst_graphscene.moc"
