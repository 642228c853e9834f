#include "data/varnel3data.h"
#include "graph/scene/celllegend.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/scene/timedivision.h"
#include "graph/scene/valuerange.h"
#include "support/columns.h"
#include "support/pixels.h"

#include <QtTest>

class TestGraphLayout : public QObject {
    Q_OBJECT

private slots:
    void placesAreas_data();
    void placesAreas();
    void dividesTime_data();
    void dividesTime();
    void cellRowsTileTheLegend_data();
    void cellRowsTileTheLegend();
    void ranges_data();
    void ranges();
    void coursesFillThePlot_data();
    void coursesFillThePlot();
    void resistanceKeepsClear_data();
    void resistanceKeepsClear();
    void cellRangeWidens();
    void timesAreRound_data();
    void timesAreRound();
    void labelsAreThinnedRegularly_data();
    void labelsAreThinnedRegularly();
    void textsCanBeRead();
    void cellColoursDiffer();
};

void TestGraphLayout::placesAreas_data()
{
    columns<QSize, QRect, QRect, int>({"size", "upper", "lower", "valueSteps"});
    QTest::newRow("1000x600") << QSize(1000, 600) << QRect(QPoint(40, 22), QPoint(900, 289))
                              << QRect(QPoint(40, 304), QPoint(900, 571)) << 7;
    QTest::newRow("odd height") << QSize(641, 401) << QRect(QPoint(40, 22), QPoint(541, 189))
                                << QRect(QPoint(40, 204), QPoint(541, 371)) << 5;
    QTest::newRow("300x200") << QSize(300, 200) << QRect(QPoint(40, 22), QPoint(200, 89))
                             << QRect(QPoint(40, 104), QPoint(200, 171)) << 2;
}

void TestGraphLayout::placesAreas()
{
    QFETCH(QSize, size);
    const GraphLayout layout(size, 100);
    QTEST(layout.area(PlotArea::Upper), "upper");
    QTEST(layout.area(PlotArea::Lower), "lower");
    QTEST(layout.valueSteps(), "valueSteps");
    QCOMPARE(layout.plotBottom(), size.height() - 25);
    QVERIFY(layout.isDrawable());
    for (PlotArea area : {PlotArea::Upper, PlotArea::Lower}) {
        const QVector<int> heights = layout.valueHeights(area);
        QCOMPARE(heights.size(), layout.valueSteps() + 1);
        QCOMPARE(heights.first(), layout.area(area).bottom());
        QCOMPARE(heights.last(), layout.area(area).top());
    }
}

void TestGraphLayout::dividesTime_data()
{
    columns<int, int, int, int>({"width", "records", "ticks", "zoomedTicks"});
    QTest::newRow("narrow") << 500 << 100 << 4 << 8;
    QTest::newRow("wide") << 501 << 100 << 8 << 8;
    QTest::newRow("narrow, zoomed") << 449 << 100 << 4 << 4;
    QTest::newRow("wide, zoomed") << 450 << 100 << 4 << 8;
    QTest::newRow("three records") << 1000 << 3 << 2 << 8;
    QTest::newRow("as many records as ticks") << 1000 << 8 << 7 << 8;
    QTest::newRow("one record") << 1000 << 1 << 0 << 8;
    QTest::newRow("none") << 1000 << 0 << 0 << 8;
}

void TestGraphLayout::dividesTime()
{
    QFETCH(int, width);
    QFETCH(int, records);
    const GraphLayout layout(QSize(width, 300), records);
    QTEST(layout.majorTicks(), "ticks");
    QTEST(layout.zoomedMajorTicks(), "zoomedTicks");
}

void TestGraphLayout::cellRowsTileTheLegend_data()
{
    columns<QSize, int, int>({"size", "cells", "columns"});
    QTest::newRow("few") << QSize(1000, 600) << 6 << 1;
    QTest::newRow("sixteen") << QSize(1000, 600) << 16 << 1;
    QTest::newRow("sixteen, on into the lower half") << QSize(640, 400) << 16 << 1;
    QTest::newRow("sixteen, close") << QSize(460, 300) << 16 << 1;
    QTest::newRow("sixteen, lower") << QSize(360, 240) << 16 << 2;
    QTest::newRow("four, small") << QSize(300, 200) << 4 << 1;
    QTest::newRow("fifteen, small") << QSize(300, 200) << 15 << 2;
    QTest::newRow("sixteen, small") << QSize(300, 200) << 16 << 2;
    QTest::newRow("none") << QSize(300, 200) << 0 << 1;
}

void TestGraphLayout::cellRowsTileTheLegend()
{
    QFETCH(QSize, size);
    QFETCH(int, cells);
    const GraphLayout layout(size, 100);
    const CellLegend legend(layout, cells);
    QTEST(legend.columns(), "columns");
    QVERIFY(legend.heading(1).height() >= 10); // with a descender
    const int perColumn = (cells + legend.columns() - 1) / legend.columns();
    for (int cell = 0; cell < cells; ++cell) {
        const QRect row = legend.row(cell);
        QVERIFY(layout.legend().adjusted(-8, 0, 0, 0).contains(row));
        QVERIFY(row.height() >= 8);
        QCOMPARE(legend.cellAt(row.topLeft()), cell);
        QCOMPARE(legend.cellAt(row.bottomRight()), cell);
        const QRect above = cell % perColumn == 0 ? legend.heading(1) : legend.row(cell - 1);
        QCOMPARE(row.top(), above.bottom() + 1);
        QVERIFY(row.bottom() < legend.below().top());
    }
    // three names with their values, as many as the lower plot has curves
    QVERIFY(layout.legend().contains(legend.below()));
    QVERIFY(legend.below().height() >= 3 * 20 + 2);
    QCOMPARE(legend.cellAt(legend.heading(1).bottomLeft()), -1);
    QCOMPARE(legend.cellAt({size.width() - 1, size.height() - 1}), -1);
}

void TestGraphLayout::ranges_data()
{
    columns<double, double, double, double>({"minimum", "maximum", "low", "high"});
    QTest::newRow("wide") << 1.0 << 2.0 << 1.0 << 2.2;
    QTest::newRow("exactly wide") << 1.0 << 1.25 << 1.0 << 1.375;
    QTest::newRow("narrow") << 1.0 << 1.2 << 0.875 << 1.325;
    QTest::newRow("narrow at zero") << 0.05 << 0.2 << 0.0 << 0.325;
    QTest::newRow("constant") << 2.0 << 2.0 << 0.0 << 2.2;
    QTest::newRow("constant and small") << 0.1 << 0.1 << 0.0 << 0.225;
    QTest::newRow("nothing") << 0.0 << 0.0 << 0.0 << 0.125;
    QTest::newRow("both signs") << -1.0 << 1.0 << -1.0 << 1.1;
    QTest::newRow("negative") << -2.0 << -1.0 << -2.2 << -1.0;
    QTest::newRow("negative and constant") << -2.0 << -2.0 << -2.2 << 0.0;
    QTest::newRow("down from zero") << -2.0 << 0.0 << -2.2 << 0.0;
}

void TestGraphLayout::ranges()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    for (double unit : {1.0, 1000.0}) {
        const Interval range = ValueRange::ofCurrent(minimum * unit, maximum * unit, unit);
        QTEST(range.low / unit, "low");
        QTEST(range.high / unit, "high");
    }
}

using Rule = Interval (*)(double, double);
Q_DECLARE_METATYPE(Rule)

void TestGraphLayout::coursesFillThePlot_data()
{
    columns<Rule, double, double, double, double>({"rule", "minimum", "maximum", "low", "high"});
    const auto row = [](const char *name, Rule rule, double minimum, double maximum, double low,
                         double high) { QTest::newRow(name) << rule << minimum << maximum << low << high; };
    row("voltage", ValueRange::ofVoltage, 46.3, 46.8, 46.25, 46.85);
    row("voltage, narrow", ValueRange::ofVoltage, 66.0, 66.05, 65.875, 66.175);
    row("voltage, constant", ValueRange::ofVoltage, 7.4, 7.4, 7.25, 7.55);
    row("voltage from zero", ValueRange::ofVoltage, 0.0, 10.0, 0.0, 11.0);
    row("voltage below zero", ValueRange::ofVoltage, -1.0, 9.0, -2.0, 10.0);
    row("energy", ValueRange::ofEnergy, 0.0, 900.0, 0.0, 990.0);
    row("energy of a second half", ValueRange::ofEnergy, 900.0, 1900.0, 800.0, 2000.0);
    row("energy, constant", ValueRange::ofEnergy, 900.0, 900.0, 899.0, 911.0);
    row("energy, nothing", ValueRange::ofEnergy, 0.0, 0.0, 0.0, 11.0);
    row("temperature, narrow", ValueRange::ofTemperature, 23.2, 24.2, 22.0, 26.0); // 21.95, 25.45
    row("temperature", ValueRange::ofTemperature, 23.0, 47.0, 23.0, 47.0);
    row("temperature below a whole one", ValueRange::ofTemperature, 23.3, 47.4, 23.0, 48.0);
    row("frost", ValueRange::ofTemperature, -8.5, 0.2, -9.0, 1.0);
    row(
        "dV", [](double low, double high) { return ValueRange::ofSlope(low, high, 10); }, -1.0, 1.0, -2.25,
        2.25); // a falling voltage is what counts
}

void TestGraphLayout::coursesFillThePlot()
{
    QFETCH(Rule, rule);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    const Interval range = rule(minimum, maximum);
    QTEST(range.low, "low");
    QTEST(range.high, "high");
}

void TestGraphLayout::resistanceKeepsClear_data()
{
    columns<double, double, double, double>({"minimum", "maximum", "step", "clear"});
    QTest::newRow("constant") << 43.0 << 43.0 << 1.0 << 0.049;
    QTest::newRow("nothing") << 0.0 << 0.0 << 1.0 << 0.049;
    QTest::newRow("course") << 40.0 << 60.0 << 20.0 << 0.049;
    QTest::newRow("three values") << 22.0 << 24.0 << 1.0 << 0.049; // of which the middle one may last
    QTest::newRow("five values") << 22.0 << 26.0 << 1.0 << 0.029;
}

/// Whatever the current's line does, that of the resistance lies elsewhere.
void TestGraphLayout::resistanceKeepsClear()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, step);
    QFETCH(double, clear);
    for (double low = 0.0; low <= 1.0; low += 0.01) {
        for (double high = low; high <= 1.0; high += 0.01) {
            const Interval range = ValueRange::ofResistance(minimum, maximum, {low, high});
            for (double taken : {low, high}) {
                for (double value = minimum; value <= maximum; value += step)
                    QVERIFY(qAbs(range.shareOf(value) - taken) > clear);
            }
            QVERIFY(range.shareOf(minimum) > 0.1 && range.shareOf(maximum) < 0.9);
        }
    }
}

void TestGraphLayout::cellRangeWidens()
{
    const int lipo = 5;
    Interval range = ValueRange::ofCells(3.5, 4.2, lipo);
    QCOMPARE(range.low, 3.3);
    QCOMPARE(range.high, 4.35);
    range = ValueRange::ofCells(2.9, 4.4, lipo);
    QCOMPARE(range.low, 2.9);
    QCOMPARE(range.high, 4.4);
    range = ValueRange::ofCells(1.0, 1.5, Varnel3Data::noCellType);
    QVERIFY(range.low <= 1.0 && range.high >= 1.5);
}

void TestGraphLayout::timesAreRound_data()
{
    columns<double, double, int, QVector<double>>({"from", "to", "most", "times"});
    QTest::newRow("seconds") << 3.5 << 13.5 << 8 << QVector<double>{4, 6, 8, 10, 12};
    QTest::newRow("minutes") << 1000.0 << 2300.0 << 8 << QVector<double>{1200, 1500, 1800, 2100};
    QTest::newRow("hours") << 0.0 << 40000.0 << 4 << QVector<double>{0, 10800, 21600, 32400};
    QTest::newRow("edges count") << 60.0 << 120.0 << 4 << QVector<double>{60, 75, 90, 105, 120};
    QTest::newRow("nothing") << 5.0 << 5.0 << 8 << QVector<double>();
}

void TestGraphLayout::timesAreRound()
{
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(int, most);
    QTEST(timeDivisions(from, to, most), "times");
    QVERIFY(timeDivisions(-2e9, 2e9, most).size() <= most + 1);
}

void TestGraphLayout::labelsAreThinnedRegularly_data()
{
    columns<int, int, int, QVector<int>>({"ticks", "spacing", "last", "labelled"});
    QTest::newRow("all fit") << 5 << 47 << 0 << QVector<int>{0, 1, 2, 3, 4};
    QTest::newRow("every second") << 9 << 46 << 0 << QVector<int>{0, 2, 4, 6, 8};
    QTest::newRow("every third, the last too") << 9 << 16 << 0 << QVector<int>{2, 5, 8};
    QTest::newRow("the last alone") << 5 << 11 << 0 << QVector<int>{4};
    QTest::newRow("even numbers") << 5 << 40 << 14 << QVector<int>{0, 2, 4};
    QTest::newRow("even numbers, moved on") << 5 << 40 << 15 << QVector<int>{1, 3};
    QTest::newRow("no width") << 5 << 0 << 0 << QVector<int>{4};
    QTest::newRow("one") << 1 << 0 << 0 << QVector<int>{0};
    QTest::newRow("none") << 0 << 0 << 0 << QVector<int>();
}

void TestGraphLayout::labelsAreThinnedRegularly()
{
    QFETCH(int, ticks);
    QFETCH(int, spacing);
    QFETCH(int, last);
    QVector<int> columns;
    for (int i = 0; i < ticks; ++i)
        columns.append(40 + i * spacing);
    QTEST(labelledTicks(columns, 47, last), "labelled");
}

void TestGraphLayout::textsCanBeRead()
{
    for (bool black : {true, false}) {
        const GraphColours colours(black);
        QVector<QColor> all{colours.voltage(), colours.current(), colours.temperature(), colours.resistance(),
            colours.slope(), colours.note(), colours.heading()};
        for (int i = 0; i < 16; ++i)
            all.append(colours.cell(i));
        for (const QColor &colour : all) {
            for (const QColor &background : {colours.background(), colours.highlight()}) {
                const QColor text = GraphColours::readable(colour, background);
                QVERIFY2(contrast(text, background) >= 4.5, qPrintable(colour.name()));
                QVERIFY(colour.hslHue() == -1 || qAbs(text.hslHue() - colour.hslHue()) <= 2);
            }
        }
    }
    QCOMPARE(GraphColours::readable(Qt::green, Qt::black), QColor(Qt::green)); // enough already
}

void TestGraphLayout::cellColoursDiffer()
{
    const GraphColours colours(true);
    for (int i = 0; i < 16; ++i) {
        QVERIFY(contrast(colours.cell(i), Qt::black) > 2.2);
        QVERIFY(contrast(colours.cell(i), Qt::white) > 2.2);
        QCOMPARE(colours.cell(i), GraphColours(false).cell(i));
        for (int j = 0; j < i; ++j) {
            const QColor a = colours.cell(i);
            const QColor b = colours.cell(j);
            QVERIFY(qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue()) > 80);
        }
    }
}

QTEST_APPLESS_MAIN(TestGraphLayout)
#include "tst_graphlayout.moc"
