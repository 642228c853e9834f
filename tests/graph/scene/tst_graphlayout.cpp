#include "data/varnel3data.h"
#include "graph/scene/celllegend.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/scene/timedivision.h"
#include "graph/scene/valuerange.h"
#include "support/columns.h"
#include "support/pixels.h"

#include <QTextStream>
#include <QtTest>

namespace {

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
        legend.row(cells - 1), legend.below(), legend.cellAt(legend.heading(1).bottomLeft()));
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

class TestGraphLayout : public QObject {
    Q_OBJECT

private slots:
    void areAsExpected_data();
    void areAsExpected();
    void resistanceKeepsClear();
    void cellColoursDiffer();
};

void TestGraphLayout::areAsExpected_data()
{
    columns<QString, QString>({"actual", "expected"});
    int group = 0;
    const auto add = [&](const QString &actual, const char *expected) {
        QTest::addRow("%d: %s", group, expected) << actual << QString::fromLatin1(expected);
    };
    add(places({1000, 600}),
        "40,22-900,289 40,304-900,571 | 942,22-999,575 942,22-999,289 942,304-999,571 | "
        "571 533 495 457 418 380 342 304");
    add(places({141, 68}), "40,22-41,23 40,38-41,39 | 83,22-140,43 83,22-140,23 83,38-140,39 | 39 38");
    add(places({140, 68}), "no room");
    add(places({141, 67}), "no room");

    group = 1; // divisions of the times
    add(ticks(500, 100) + " | " + ticks(501, 100), "4 8 3.6 | 8 8 3.61");
    add(ticks(449, 100) + " | " + ticks(450, 100), "4 4 3.09 | 4 8 3.1");
    add(ticks(1000, 3) + " | " + ticks(1000, 8), "2 8 286.666667 | 7 8 107.5");
    add(ticks(1000, 1) + " | " + ticks(1000, 0), "0 8 860 | 0 8 0");

    group = 2; // ends of the maps, of a single moment and a clock that was set back too
    const GraphLayout layout(QSize(1000, 600), 100);
    for (const Interval &times : {Interval{10, 20}, {5, 5}, {20, 10}}) {
        const QwtScaleMap map = layout.timeMap(times.low, times.high);
        add(text(map.transform(times.low), ' ', map.transform(times.length() ? times.high : 6)), "40 900");
    }
    const QwtScaleMap values = layout.valueMap(PlotArea::Lower, 1, 3);
    add(text(values.transform(1), ' ', values.transform(3)), "571 304");
    const auto scale = [](int width, int height, double wanted) {
        return text(GraphLayout::fittingScale({width, height}, wanted));
    };
    add(scale(1000, 600, 1.75) + ' ' + scale(480, 600, 2.0), "1.75 1.5"); // narrow
    add(scale(1000, 250, 2.0) + ' ' + scale(200, 100, 2.0) + ' ' + scale(1000, 600, 0.5), "1.25 1 1"); // low

    group = 3; // cells: few, many, on into the lower half, close, in two columns
    add(places({1000, 600}, 6),
        "1: 942,22-999,38 942,39-999,55 942,56-999,72 942,141-999,157 942,304-999,571 -1");
    add(places({1000, 600}, 16),
        "1: 942,22-999,35 942,36-999,50 942,51-999,64 942,274-999,288 942,304-999,571 -1");
    add(places({640, 400}, 16),
        "1: 582,22-639,35 582,36-639,50 582,51-639,64 582,269-639,282 582,286-639,375 -1");
    add(places({460, 300}, 16),
        "1: 402,22-459,31 402,32-459,41 402,42-459,51 402,197-459,206 402,210-459,275 -1");
    add(places({360, 240}, 16),
        "2: 294,22-359,33 294,34-359,46 294,47-324,58 325,135-359,146 302,150-359,215 -1");
    add(places({300, 200}, 4),
        "1: 242,22-299,32 242,33-299,43 242,44-299,54 242,78-299,88 242,104-299,171 -1");
    add(places({300, 120}, 4), "1: 242,22-299,31 242,32-299,41 242,42-299,47 242,60-299,65 242,68-299,95 -1");
    add(places({300, 120}, 5), "2: 234,22-299,31 234,32-299,41 234,42-264,49 265,50-299,57 242,68-299,95 -1");
    add(places({300, 200}, 15),
        "2: 234,22-299,31 234,32-299,41 234,42-264,49 265,91-299,98 242,110-299,175 -1");
    add(places({300, 200}, 0),
        "1: 242,22-299,38 242,39-299,55 242,56-299,72 242,56-299,72 242,104-299,171 -1");

    group = 4; // zooms: what mouse and keys hardly reach
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
    zoom.zoomValues(1e6, PlotArea::Upper, 0.5, whole);
    add(shown(zoom), "0..1000 0.4995..0.5005 0..1");
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

    group = 5; // ranges
    using namespace ValueRange;
    for (const double unit : {1.0, 1000.0}) {
        struct Row {
            double minimum, maximum;
            const char *expected;
        };
        const Row currents[]
            = {{1.0, 2.0, "1..2.2"}, {1.0, 1.25, "1..1.375"}, {1.0, 1.2, "0.875..1.325"}, // narrow
                {0.05, 0.2, "0..0.325"}, {0.5, 0.5 + 1.0 / 512, "0.375..0.626953125"},
                {0.5, 0.5 + 1.0 / 1024, "0..0.551074219"}, {0.25, 0.25, "0..0.275"}, // constant
                {0.1, 0.1, "0..0.225"}, {0.0, 0.0, "0..0.125"}, {-1.0, 1.0, "-1..1.1"},
                {-2.0, -1.0, "-2.2..-1"}, {-2.0, -2.0, "-2.2..0"}, {-2.0, 0.0, "-2.2..0"}};
        for (const Row &row : currents) {
            const Interval range = ofCurrent(row.minimum * unit, row.maximum * unit, unit);
            add(text(Interval{range.low / unit, range.high / unit}), row.expected);
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
    add(text(ofResistance(40, 54, {0.95, 0.97})), "37..57");
    add(text(ofResistance(40, 52, {0.15, 0.5})), "35..55"); // its lowest place is taken
    add(text(ofResistance(40, 52, {0.45, 0.85})), "37..57"); // the highest
    add(text(ofCells(3.5, 4.2, 5), ofCells(2.9, 4.4, 5)), "3.3..4.35 2.9..4.4");
    add(text(ofCells(1.0, 1.5, Varnel3Data::noCellType)), "0.95..1.55");

    group = 6; // round times
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

    group = 7; // labels that don't touch
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
        {"#777777", "#777777", "#070707"}};
    group = 8;
    for (const auto &[colour, background, text] : colours)
        add(GraphColours::readable(QColor(colour), QColor(background)).name(), text);
}

void TestGraphLayout::areAsExpected()
{
    QFETCH(QString, actual);
    QTEST(actual, "expected");
}

/// Whatever the current's line does, that of the resistance lies elsewhere.
void TestGraphLayout::resistanceKeepsClear()
{
    struct Course {
        double minimum, maximum, step, clear;
    };
    const Course courses[] = {{43, 43, 1, 0.049}, {0, 0, 1, 0.049}, {40, 60, 20, 0.049}, {22, 24, 1, 0.049},
        {22, 26, 1, 0.029}}; // of three values the middle one may last, of five each
    for (const Course &course : courses) {
        for (int pair = 0; pair < 101 * 101; ++pair) {
            const Interval taken = {pair / 101 / 100.0, pair % 101 / 100.0};
            const Interval range = ValueRange::ofResistance(course.minimum, course.maximum, taken);
            for (double value = course.minimum; taken.length() >= 0 && value <= course.maximum;
                 value += course.step) {
                const double share = range.shareOf(value);
                QVERIFY(share > 0.1 && share < 0.9 && qAbs(share - taken.low) > course.clear
                    && qAbs(share - taken.high) > course.clear);
            }
        }
    }
}

void TestGraphLayout::cellColoursDiffer()
{
    const GraphColours colours(true);
    for (int i = 0; i < 16; ++i) {
        const QColor a = colours.cell(i);
        QCOMPARE(a, GraphColours(false).cell(i));
        QVERIFY(contrast(a, Qt::black) > 2.2 && contrast(a, Qt::white) > 2.2);
        for (int j = 0; j < i; ++j) {
            const QColor b = colours.cell(j);
            QVERIFY(qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue()) > 80);
        }
    }
}

QTEST_APPLESS_MAIN(TestGraphLayout)
#include "tst_graphlayout.moc"
