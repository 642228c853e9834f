#include "displays/capacitychart.h"
#include "displays/powerchart.h"
#include "displays/samplepack.h"
#include "displays/voltagechart.h"
#include "support/paintlog.h"

#include <QtTest>

namespace {

constexpr QSize smallest{470, 280};
constexpr QSize larger{705, 420}; // half as large again
constexpr QSize usual{640, 360}; // of the voltage comparison
using Ints = QVector<int>;

CapacityChart capacities(const Ints &mAh)
{
    CapacityChart chart;
    for (const int capacity : mAh)
        chart.entries.append({capacity, 'C', chart.entries.size() + 1});
    return chart;
}

PowerChart bars(const Ints &values, int upper = 100)
{
    PowerChart chart;
    chart.bars.count = values.size();
    chart.bars.upper = upper;
    std::copy(values.begin(), values.end(), chart.bars.values.begin());
    std::fill_n(chart.bars.known.begin(), values.size(), true);
    return chart;
}

VoltageChart voltages(const QVector<PackVoltages> &packs)
{
    VoltageChart chart;
    chart.packs = packs;
    return chart;
}

/// The scale, the cells' values, - where there is none, and after / their levels.
QString told(const Varnel3Data &record, CellValue value)
{
    const PowerBars bars = PowerBars::of(record, value);
    QString text = QString("%1..%2:").arg(bars.lower).arg(bars.upper);
    QString levels = " /";
    for (int i = 0; i < bars.count; ++i) {
        text += bars.known[i] ? QString(" %1").arg(bars.values[i]) : QString(" -");
        levels += QString(" %1").arg(bars.levels[i]);
    }
    return text + levels;
}

} // namespace

/// `chart` in so many pixels shows what is expected, and, where true follows that, nothing else.
#define SHOWS(chart, size, ...)                                                                              \
    VERIFY_PAINTS(                                                                                           \
        size, [&](QPainter &painter) { (chart).paint(painter, size); }, __VA_ARGS__)

/// The displays' pictures as values: what stands where, in which colour and size.
class TestCharts : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void capacityPicture()
    {
        CapacityChart chart = capacities({2000, 0});
        chart.entries[0].mode = 'D';
        chart.entries[0].number = 12;
        chart.entries[0].staleSince = QDateTime::currentDateTime();
        chart.entries[1].mode = ' ';
        SHOWS(chart, smallest,
            "line 20,224 450,224 #7f7f7f; line 20,56 450,56 #7f7f7f; line 20,112 450,112 #7f7f7f; "
            "line 20,168 450,168 #7f7f7f; rect 30,56 38x168 #7f0000 dim; rect 36,56 7x168 #ff0000 dim; "
            "rect 30,56 37x167 pen1 #ff0000 dim; rect 35,36 39x13 #ffffc8 dim; "
            "rect 35,36 39x13 pen1 #000000 dim; text '12' mid 55,43 11 Arial #000000 dim; "
            "rect 35,20 39x13 #ffff00 dim; rect 35,20 39x13 pen1 #000000 dim; "
            "text '100%' mid 55,27 11 Arial #000000 dim; text '1' foot 49,252 13 bold Arial #ffffff dim; "
            "text '2.000 Ah' mid 49,260 11 Arial #ffffff dim; rect 82,223 38x1 #7f7f00; "
            "rect 88,223 7x1 #ffff00; rect 82,223 37x0 pen1 #ffff00; rect 87,203 39x13 #ffffc8; "
            "rect 87,203 39x13 pen1 #000000; text '2' mid 107,210 11 Arial #000000; "
            "text '2' foot 101,252 13 bold Arial #ffffff; text '0.000 Ah' mid 101,260 11 Arial #ffffff",
            true);
    }

    void capacityDetails()
    {
        CapacityChart chart = capacities({0, 0, 0, 0, 0, 0, 0, 7});
        SHOWS(chart, QSize(1900, 280), "rect 1689,56 172x168 #007f00; rect 30,223 172x1 #007f00");
        chart = capacities({1});
        SHOWS(chart, QSize(470, 215), "text '0.001 Ah' mid 49,208 11 Arial #ffffff");
        SHOWS(chart, QSize(470, 100),
            "rect 35,0 39x13 #ffff00; rect 35,10 39x13 #ffffc8; text '100%' mid 55,7 11 Arial #000000");
        chart.scale = 1.5;
        SHOWS(chart, larger, "rect 45,84 57x252 #007f00; rect 53,54 59x20 pen1 #000000");
        // On white, outlines of one or two pixels are as dark as bars.
        chart = capacities({9000, 110, 161});
        chart.blackGround = false;
        SHOWS(chart, smallest,
            "text '1' foot 49,252 13 bold Arial #000000; rect 30,56 37x167 pen1 #00ff00; "
            "rect 82,222 37x1 pen1 #007f00; rect 134,221 37x2 pen1 #00ff00");
        chart = capacities({9000, 8000, 7000, 915, 910});
        chart.blackGround = false;
        chart.distinct = true; // letters in the bars, beside low ones
        chart.entries[1].mode = 'D';
        chart.entries[2].mode = 'F';
        SHOWS(chart, smallest,
            "rect 30,56 37x167 #009632; rect 30,56 37x167 pen1 #000000; "
            "text 'C' mid 49,217 13 bold Arial #ffffff; rect 82,75 37x148 #6e0000; "
            "text 'D' mid 101,217 13 bold Arial #ffffff; rect 134,94 37x129 #f5e15a; "
            "text 'B' mid 153,217 13 bold Arial #000000; text 'C' mid 205,217 13 bold Arial #ffffff; "
            "text 'C' mid 283,217 13 bold Arial #000000");
        chart = capacities({1, 1, 7});
        chart.first = 2;
        SHOWS(chart, smallest, "text '3' mid 55,43 11 Arial #000000");

        // The scale ends at the largest of all.
        SHOWS(capacities({1999, 2000}), smallest,
            "rect 30,57 38x167 #007f00; text '100%' mid 55,28 11 Arial #000000");
        SHOWS(capacities({-50, 0}), smallest,
            "rect 30,223 38x1 #007f00; rect 82,223 38x1 #007f00; text '0%' mid 55,194 11 Arial #000000");
        SHOWS(capacities({2147483647, 1073741824}), smallest,
            "rect 30,56 38x168 #007f00; rect 82,140 38x84 #007f00; text '50%' mid 107,111 11 Arial #000000");
        CapacityChart nine = capacities({10, 20, 30, 40, 50, 60, 70, 80, 90});
        nine.first = 1;
        const QMap<int, int> entries{
            {29, -1}, {30, 1}, {67, 1}, {68, -1}, {81, -1}, {82, 2}, {394, 8}, {431, 8}, {432, -1}};
        for (auto it = entries.begin(); it != entries.end(); ++it)
            QCOMPARE(nine.entryAt({it.key(), 10}, smallest), it.value());
    }

    void powerValues()
    {
        Varnel3Data record = samplePack({4040, 3960, 4001, 3999});
        const CellData cells[] = {{4040, 99, 0, 2.0}, {3960, 130, 14759999, 2.5}, {4001, -5, 36000000, 0.0},
            {3999, 0, 0, 6.0}, {9, 9, 72000000, 9.9}};
        std::copy(std::begin(cells), std::end(cells), record.cells);
        constexpr CellValue volts = CellValue::Voltage;
        constexpr CellValue charge = CellValue::Charge;
        constexpr CellValue ohms = CellValue::Resistance;
        QCOMPARE(told(record, volts), QString("-100..100: 40 -40 1 -1 / 99 100 0 0"));
        QCOMPARE(told(record, charge), QString("0..100: 0 40 100 0 / 99 100 0 0"));
        QCOMPARE(told(record, ohms), QString("0..100: 0 25 - 200 / 99 100 0 0"));
        record.cells[3].balanceCharge = 36360000;
        QCOMPARE(told(record, charge), QString("0..101: 0 40 100 101 / 99 100 0 0"));
        QCOMPARE(told(sampleResistances({200.0, 0.1}), ohms), QString("0..100: 199900 0 / 0 0"));
        QCOMPARE(told(sampleResistances({1e9, 1e-9}), ohms), QString("0..100: 2147483647 0 / 0 0"));
        QCOMPARE(told(sampleResistances({0.0, -1.0}), ohms), QString("0..100: - - / 0 0"));
        record.cells[0].voltage = -2147483647;
        record.cells[1].voltage = 2147483647;
        record.cellAverage = 2147483647;
        QVERIFY(told(record, volts).startsWith("-100..100: -2147483647 0"));
        record.cellAverage = -2147483647;
        QVERIFY(told(record, volts).startsWith("-100..100: 0 2147483647"));

        // The cells that are shown, as bars and beside other packs.
        const QVector<std::tuple<int, int, char, int>> rows{{0, 0, 'B', 0}, {4, 5, 'B', 0}, {4, 0, '_', 0},
            {99, 0, 'B', 16}, {-1, 0, 'B', 0}, {4, 0, 'B', 4}};
        for (const auto &[cellCount, mode, flag, shown] : rows) {
            record = samplePack({4000, 4100, 4000, 4000});
            record.cellCount = cellCount;
            record.mode = mode;
            record.flag5 = flag;
            for (const CellValue quantity : {volts, charge, ohms})
                QCOMPARE(PowerBars::of(record, quantity).count, shown);
            const PackVoltages pack = PackVoltages::of(record, 7);
            QVERIFY(pack.cellCount == shown && pack.hasCellData == (shown > 0));
            QCOMPARE(pack.voltages[1], shown > 0 ? 4100 : 0);
        }
    }

    void powerPicture()
    {
        PowerChart chart = bars({40, -150, 0, 150, 100, -100});
        chart.bars.known[2] = false;
        chart.bars.levels = {100, 50, 0, 1, 0, 0};
        chart.windowNumber = 7;
        QString marks;
        for (const auto &[y, value] : {std::pair(168, -100), {133, -50}, {98, 0}, {63, 50}, {28, 100}})
            marks += QString::asprintf(
                "line 30,%d 441,%d #323232; text '%d' right 27,%d 11 Times #ffffff; ", y, y, value, y);
        for (const auto &[y, level] : {std::pair(242, 25), {231, 50}, {221, 75}, {210, 100}})
            marks += QString::asprintf(
                "line 30,%d 441,%d #323232; text '%d' right 27,%d 9 Times #ffffff; ", y, y, level, y);
        marks += "text '[mV]' left 24,10 11 Times #ffffff; text '[%]' right 27,194 11 Times #ffffff; "
                 "line 30,98 441,98 #7f7f7f; line 30,252 441,252 #7f7f7f; rect 39,70 52x28 #00ff00; "
                 "rect 39,210 52x42 #00ffff; text '1' mid 65,267 12 Arial #ffffff; "
                 "rect 104,99 52x70 #00ff00; rect 104,167 52x2 #ff0000; rect 104,165 52x1 #000000; "
                 "rect 104,231 52x21 #00ffff; text '2' mid 130,267 12 Arial #ffffff; "
                 "text '-' foot 195,96 16 bold Arial #ffffff; text '3' mid 195,267 12 Arial #ffffff; "
                 "rect 235,28 52x70 #00ff00; rect 235,28 52x2 #ff0000; rect 235,31 52x1 #000000; "
                 "text '4' mid 261,267 12 Arial #ffffff; rect 300,28 52x70 #00ff00; "
                 "text '5' mid 326,267 12 Arial #ffffff; rect 365,99 52x70 #00ff00; "
                 "text '6' mid 391,267 12 Arial #ffffff; rect 0,0 18x18 #ffff00; "
                 "text '7' mid 9,9 12 Arial #000000";
        SHOWS(chart, smallest, marks, true);
    }

    void powerDetails()
    {
        PowerChart chart = bars({40, -150, 0, 150, 100, -100});
        chart.bars.levels = {100};
        chart.blackGround = false;
        SHOWS(chart, smallest,
            "line 30,168 441,168 #dcdcdc; text '[mV]' left 24,10 11 Times #000000; "
            "text '50' right 27,63 11 Times #000000; text '1' mid 65,267 12 Arial #000000; "
            "rect 39,210 52x42 #0096c8");
        chart.stale = true;
        chart.distinct = true;
        chart.windowNumber = 8888;
        SHOWS(chart, smallest, "rect 39,70 52x28 #007f00 dim; rect 0,0 33x18 #ffff00");
        chart.stale = chart.distinct = false;
        chart.scale = 1.5;
        SHOWS(chart, larger,
            "rect 59,105 78x42 #00ff00; line 45,378 661,378 #7f7f7f; rect 0,0 49x27 #ffff00; "
            "rect 352,42 78x3 #ff0000");
        chart = bars(Ints(16, 1155), 1155);
        chart.bars.lower = 0;
        chart.bars.quantity = CellValue::Charge;
        SHOWS(chart, smallest,
            "text '[mAh]' left 24,10 11 Times #ffffff; text '288' right 27,133 11 Times #ffffff; "
            "rect 406,28 20x140 #00ff00");
        chart.bars.quantity = CellValue::Resistance;
        SHOWS(chart, smallest, "text '[Ri %]' left 24,10 11 Times #ffffff");
        SHOWS(bars({100}), QSize(70, 280), "rect 39,28 1x70 #00ff00");
        SHOWS(bars({0}, 2147483647), smallest, "text '2147483647' right 27,28 5 Times #ffffff");
    }

    void voltageAxis()
    {
        constexpr int most = 2147483647;
        const QVector<std::pair<Ints, Ints>> rows = {// lowest and highest; ends of the axis, and its step
            {{4000, 4000}, {3980, 4020, 20}}, {{4000, 4099}, {3980, 4120, 20}},
            {{4000, 4100}, {3980, 4120, 20}}, {{4000, 4101}, {3950, 4150, 50}},
            {{3995, 4071}, {3960, 4100, 20}}, {{0, 4180}, {0, 5000, 1000}}, {{-50, 50}, {-80, 80, 20}},
            {{-most - 1, most}, {-1500000000, 1500000000, 500000000}}};
        for (const auto &[range, expected] : rows) {
            const VoltageAxis axis = VoltageAxis::around(range[0], range[1]);
            QCOMPARE((Ints{axis.lower, axis.upper, axis.step}), expected);
            QVERIFY(axis.marks().constFirst() == axis.lower && axis.marks().constLast() == axis.upper);
            QVERIFY(axis.y(axis.lower, 300, 100) == 300 && axis.y(most, 300, 100) == 100);
        }
    }

    void voltagePicture()
    {
        VoltageChart chart = voltages({packOf(1, {4000, 4008, 4004}), packOf(2, {4008, 4001}, {1})});
        chart.packs[1].staleSince = QDateTime({2026, 1, 2}, {3, 4, 5});
        SHOWS(chart, usual,
            "line 52,294 639,294 #3c3c3c; text '3.98' right 46,294 11 Arial #ffffff; "
            "line 52,167 639,167 #3c3c3c; text '4.00' right 46,167 11 Arial #ffffff; "
            "line 52,39 639,39 #3c3c3c; text '4.02' right 46,39 11 Arial #ffffff; "
            "text '[V]' right 46,12 11 Arial #ffffff; line 52,0 52,360 #7f7f7f; "
            "line 52,294 359,294 #7f7f7f; rect 56,3 18x18 #ffff00; text '1' mid 65,12 12 Arial #000000; "
            "text 'Varnel 3' left 80,12 12 Arial #ffffff; rect 145,167 33x127 #ff7f00; "
            "text '1' mid 161,304 11 Arial #ffffff; rect 189,116 33x178 #e6d200; "
            "text '2' mid 205,304 11 Arial #ffffff; rect 233,141 33x153 #4678ff; "
            "text '3' mid 249,304 11 Arial #ffffff; text 'Max 4.008 V, cell 2' left 56,319 11 Arial #ffffff; "
            "text 'Min 4.000 V, cell 1' left 56,334 11 Arial #ffffff; "
            "text 'Spread 0.008 V' left 56,349 11 Arial #ffffff; line 360,0 360,360 #7f7f7f; "
            "line 360,294 639,294 #7f7f7f; rect 364,3 18x18 #ffff00; text '2' mid 373,12 12 Arial #000000; "
            "text 'Varnel 3' left 388,12 12 Arial #ffffff; "
            "text 'No line since 03:04:05' left 364,30 11 Arial #ffffff; rect 461,116 33x178 #e6d200 dim; "
            "text '1' mid 477,304 11 Arial #ffffff dim; rect 505,160 33x134 #ff7f00 dim; "
            "rect 505,160 33x134 pen2 #ffffff dim; text '2' mid 521,304 12 bold Arial #ffffff dim; "
            "text 'Max 4.008 V, cell 1' left 364,319 11 Arial #ffffff dim; "
            "text 'Min 4.001 V, cell 2' left 364,334 11 Arial #ffffff dim; "
            "text 'Spread 0.007 V' left 364,349 11 Arial #ffffff dim",
            true);
    }

    void voltageDetails()
    {
        VoltageChart chart = voltages({packOf(1, {4000, 4040, 3960}), packOf(2, {4040, 3970}, {1})});
        VERIFY_PAINTS(
            usual, [&](QPainter &painter) { chart.paint(painter, usual, 10); },
            "rect 135,167 33x127 #4678ff; line 42,0 42,360 #7f7f7f");
        chart.blackGround = false;
        SHOWS(chart, usual,
            "line 52,294 639,294 #d7d7d7; text '[V]' right 46,12 11 Arial #000000; "
            "rect 505,230 33x64 pen2 #000000; text '2' mid 521,304 12 bold Arial #000000");
        chart.distinct = true;
        SHOWS(chart, usual, "rect 233,252 33x42 #be4600; rect 233,252 32x41 pen1 #000000");
        chart.oneCell = 1;
        SHOWS(chart, usual,
            "text '3.970 V' mid 493,326 19 bold Arial #000000; rect 182,82 33x212 #4678ff; "
            "rect 476,230 33x64 pen2 #000000");
        chart.oneCell = 2;
        SHOWS(chart, usual, "text 'No cell 3' mid 493,167 15 Arial #000000");
        chart.oneCell = 0;
        chart.selection = VoltageChart::OnlySelected; // whatever is selected
        SHOWS(chart, usual, "text '4.040 V' mid 493,326 19 bold Arial #000000; rect 476,103 33x191 #4678ff");
        chart.oneCell = -1;
        SHOWS(chart, usual,
            "text 'No cell selected' mid 199,167 15 Arial #000000; rect 476,167 33x127 #4678ff; "
            "text '2' mid 492,304 11 Arial #000000");
        chart = voltages({packOf(1, {4000}, {0}), PackVoltages()});
        chart.selection = VoltageChart::AllButSelected;
        SHOWS(chart, usual,
            "text 'All cells are hidden.' mid 199,167 15 Arial #ffffff; "
            "text 'No cell data' mid 493,167 15 Arial #ffffff");
        chart = voltages({packOf(3, {0, 4180, 1300, 4100})});
        SHOWS(chart, usual,
            "text '5.0' right 46,39 11 Arial #ffffff; text '0.0' right 46,294 11 Arial #ffffff; "
            "rect 263,294 33x1 #ff7f00");
        chart.packs[0].device = QString("Varnel 3 of no end, ").repeated(4);
        chart.scale = 1.5;
        SHOWS(chart, usual, "rect 84,5 27x27 #ffff00; text '[V]' right 69,18 16 Arial #ffffff");
        SHOWS(voltages(sixteens(3)), usual,
            "rect 66,160 11x134 #e6d200; rect 81,160 11x134 #4678ff; text '16' mid 297,304 11 Arial #ffffff");
    }

    void voltagePage()
    {
        VoltageChart chart = voltages({packOf(1, {4000}), packOf(2, {4000}), packOf(3, {4000})});
        QCOMPARE(chart.pageSize(), QSize(480, 280));
        chart.packs += packOf(4, {4100}); // rows of at most three, on one axis
        chart.packs += chart.packs.mid(0, 3);
        VERIFY_PAINTS(
            chart.pageSize(), [&](QPainter &painter) { chart.paintPage(painter); },
            "rect 56,3 18x18 #ffff00; rect 198,3 18x18 #ffff00; rect 56,283 18x18 #ffff00; "
            "text '4.12' right 46,39 11 Arial #ffffff; text '4.12' right 46,599 11 Arial #ffffff");
        QCOMPARE(voltages(sixteens(7)).pageSize(), QSize(844, 840));
    }

    void voltagePlaces()
    {
        QCOMPARE(VoltageChart().firstSeen(640, 0), -1);
        QCOMPARE(VoltageChart().contentWidth(640), 640);
        SHOWS(VoltageChart(), usual, "text 'NO DATA' mid 320,180 53 Arial #ffffff");
        const VoltageChart chart = voltages(sixteens(12));
        QCOMPARE(chart.groupsWidth(20), 1);
        QCOMPARE(chart.contentWidth(4000), 4000);
        const QMap<int, int> firsts{{0, 0}, {1, 1}, {264, 1}, {265, 2}, {9999, 11}};
        for (auto it = firsts.begin(); it != firsts.end(); ++it)
            QCOMPARE(chart.firstSeen(640, it.key()), it.value());
        QCOMPARE(chart.firstSeen(200, 10), 0); // the next begins out of sight
        QCOMPARE(chart.barRect(11, 15, usual, chart.contentWidth(640) - 640).right(), 625);
        const auto shows = [&chart](const char *badge) {
            const auto paint = [&chart](QPainter &painter) { chart.paint(painter, usual, 320); };
            return paintFault(usual, paint, badge).isEmpty();
        };
        QVERIFY(shows("rect 264,3 18x18 #ffff00; rect 528,3 18x18 #ffff00"));
        QVERIFY(!shows("rect -264,3 18x18 #ffff00") && !shows("rect 792,3 19x18 #ffff00")); // out of sight

        VoltageChart few = voltages({packOf(1, {4000, 4040, 3960}), packOf(2, {4040, 3970}, {0})});
        few.selection = VoltageChart::AllButSelected;
        const QVector<std::pair<QPoint, QPoint>> hits{{{136, 0}, {-1, -1}}, {{137, 0}, {0, 0}},
            {{185, 0}, {0, 0}}, {{186, 0}, {0, 1}}, {{273, 0}, {0, 2}}, {{274, 0}, {-1, -1}},
            {{500, 0}, {1, 1}}, {{127, 10}, {0, 0}}, {{45, 110}, {-1, -1}}, {{52, 100}, {0, 0}}};
        for (const auto &[at, expected] : hits) {
            const VoltageChart::CellRef hit = few.cellAt({at.x(), 5}, usual, at.y());
            QCOMPARE(QPoint(hit.pack, hit.cell), expected);
        }
        QVERIFY(few.barRect(1, 0, usual, 0).isNull());
    }
};

QTEST_MAIN(TestCharts)
#include "tst_charts.moc"
