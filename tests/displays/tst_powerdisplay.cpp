#include "displays/powerdisplay.h"

#include "displays/samplepack.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/paintlog.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QSignalSpy>
#include <QTest>

namespace {

constexpr QSize smallest{470, 280};

PowerChart chartOf(const QVector<int> &values, int upper = 100)
{
    PowerChart chart;
    chart.bars.count = values.size();
    chart.bars.upper = upper;
    for (int i = 0; i < values.size(); ++i) {
        chart.bars.values[i] = values[i];
        chart.bars.known[i] = true;
    }
    return chart;
}

/// The scale, the cells' values, - where there is none, and after / their levels; ! for one that is too many.
QString told(const Varnel3Data &record, CellValue value)
{
    const PowerBars bars = PowerBars::of(record, value);
    QString text = QString("%1: %2..%3:").arg(int(bars.quantity)).arg(bars.lower).arg(bars.upper);
    for (int i = 0; i < bars.count; ++i)
        text += bars.known[i] ? QString(" %1").arg(bars.values[i]) : QString(" -");
    text += " /";
    for (int i = 0; i < bars.count; ++i)
        text += QString(" %1").arg(bars.levels[i]);
    for (int i = bars.count; i < PowerBars::maxCells; ++i)
        text += bars.known[i] || bars.values[i] != 0 || bars.levels[i] != 0 ? "!" : "";
    return text;
}

} // namespace

Q_DECLARE_METATYPE(PowerChart)

/// The bar display: values made from records, bars made from values.
class TestPowerDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void valuesOfTheCells()
    {
        Varnel3Data record = samplePack({4040, 3960, 4001, 3999});
        const CellData cells[] = {{4040, 99, 0, 2.0}, {3960, 130, 14759999, 2.5}, {4001, -5, 36000000, 0.0},
            {3999, 0, 0, 6.0}, {9, 9, 72000000, 9.9}};
        std::copy(std::begin(cells), std::end(cells), record.cells);
        QCOMPARE(told(record, CellValue::Voltage), QString("0: -100..100: 40 -40 1 -1 / 99 100 0 0"));
        QCOMPARE(told(record, CellValue::Charge), QString("1: 0..100: 0 40 100 0 / 99 100 0 0"));
        QCOMPARE(told(record, CellValue::Resistance), QString("2: 0..100: 0 25 - 200 / 99 100 0 0"));
        record.cells[3].balanceCharge = 415800000;
        QCOMPARE(told(record, CellValue::Charge), QString("1: 0..1155: 0 40 100 1155 / 99 100 0 0"));
        record.cells[3].balanceCharge = 36360000;
        QCOMPARE(told(record, CellValue::Charge), QString("1: 0..101: 0 40 100 101 / 99 100 0 0"));
        QCOMPARE(told(sampleResistances({200.0, 0.1}), CellValue::Resistance),
            QString("2: 0..100: 199900 0 / 0 0"));
        QCOMPARE(told(sampleResistances({1e9, 1e-9}), CellValue::Resistance),
            QString("2: 0..100: 2147483647 0 / 0 0"));
        QCOMPARE(
            told(sampleResistances({0.0, -1.0}), CellValue::Resistance), QString("2: 0..100: - - / 0 0"));
        record.cells[0].voltage = -2147483647;
        record.cells[1].voltage = 2147483647;
        record.cellAverage = 2147483647;
        QVERIFY(told(record, CellValue::Voltage).startsWith("0: -100..100: -2147483647 0"));
        record.cellAverage = -2147483647;
        QVERIFY(told(record, CellValue::Voltage).startsWith("0: -100..100: 0 2147483647"));
    }

    void recordsWithoutCells_data()
    {
        columns<int, int, char, int>({"cellCount", "mode", "flag", "shown"});
        QTest::newRow("no cells") << 0 << 0 << 'B' << 0;
        QTest::newRow("no process") << 4 << 5 << 'B' << 0;
        QTest::newRow("no cell data") << 4 << 0 << '_' << 0;
        QTest::newRow("too many") << 99 << 0 << 'B' << 16;
        QTest::newRow("too few") << -1 << 0 << 'B' << 0;
    }

    void recordsWithoutCells()
    {
        QFETCH(int, cellCount);
        QFETCH(int, mode);
        QFETCH(char, flag);
        Varnel3Data record = samplePack({4000, 4000, 4000, 4000});
        record.cellCount = cellCount;
        record.mode = mode;
        record.flag5 = flag;
        for (const CellValue quantity : {CellValue::Voltage, CellValue::Charge, CellValue::Resistance})
            QTEST(PowerBars::of(record, quantity).count, "shown");
    }

    void picture()
    {
        PowerChart chart = chartOf({40, -150, 0, 150, 100, -100});
        chart.bars.known[2] = false;
        chart.bars.levels = {100, 50, 0, 1, 0, 0};
        chart.windowNumber = 7;
        VERIFY_PAINTS(
            smallest, [&chart](QPainter &painter) { chart.paint(painter, smallest); },

            "text '[mV]' left 24,10 11 Times #ffffff; text '[%]' right 27,194 11 Times #ffffff; "
            "line 30,168 441,168 #323232; text '-100' right 27,168 11 Times #ffffff; "
            "line 30,133 441,133 #323232; text '-50' right 27,133 11 Times #ffffff; "
            "line 30,98 441,98 #323232; text '0' right 27,98 11 Times #ffffff; "
            "line 30,63 441,63 #323232; text '50' right 27,63 11 Times #ffffff; "
            "line 30,28 441,28 #323232; text '100' right 27,28 11 Times #ffffff; "
            "line 30,242 441,242 #323232; text '25' right 27,242 9 Times #ffffff; "
            "line 30,231 441,231 #323232; text '50' right 27,231 9 Times #ffffff; "
            "line 30,221 441,221 #323232; text '75' right 27,221 9 Times #ffffff; "
            "line 30,210 441,210 #323232; text '100' right 27,210 9 Times #ffffff; "
            "line 30,98 441,98 #7f7f7f; line 30,252 441,252 #7f7f7f; rect 39,70 52x28 #00ff00; "
            "rect 39,210 52x42 #00ffff; text '1' mid 65,267 12 Arial #ffffff; "
            "rect 104,99 52x70 #00ff00; rect 104,167 52x2 #ff0000; rect 104,165 52x1 #000000; "
            "rect 104,231 52x21 #00ffff; text '2' mid 130,267 12 Arial #ffffff; "
            "text '-' foot 195,96 16 bold Arial #ffffff; text '3' mid 195,267 12 Arial #ffffff; "
            "rect 235,28 52x70 #00ff00; rect 235,28 52x2 #ff0000; rect 235,31 52x1 #000000; "
            "text '4' mid 261,267 12 Arial #ffffff; rect 300,28 52x70 #00ff00; "
            "text '5' mid 326,267 12 Arial #ffffff; rect 365,99 52x70 #00ff00; "
            "text '6' mid 391,267 12 Arial #ffffff; rect 0,0 18x18 #ffff00; "
            "text '7' mid 9,9 12 Arial #000000",
            true);
    }

    void details_data()
    {
        columns<PowerChart, QSize, QString>({"chart", "size", "line"});
        const PowerChart usual = chartOf({40, -150, 0, 150, 100, -100});
        const auto row = [](const char *name, const PowerChart &chart, const char *line,
                             const QSize &size = smallest) { QTest::newRow(name) << chart << size << line; };
        PowerChart chart = usual;
        chart.bars.levels = {100};
        chart.blackGround = false;
        row("mark on white", chart, "line 30,168 441,168 #dcdcdc");
        row("text on white", chart, "text '[mV]' left 24,10 11 Times #000000");
        row("mark's text on white", chart, "text '50' right 27,63 11 Times #000000");
        row("cell's text on white", chart, "text '1' mid 65,267 12 Arial #000000");
        row("level on white", chart, "rect 39,210 52x42 #0096c8");
        chart.bars.count = 0;
        row("nothing, on white", chart, "text 'NO DATA' mid 235,140 53 Arial #000000");
        chart = usual;
        chart.stale = true;
        row("stale", chart, "rect 39,70 52x28 #00ff00 dim");
        chart.windowNumber = 8;
        row("stale, whose", chart, "rect 0,0 18x18 #ffff00");
        chart = usual;
        chart.scale = 1.5;
        chart.windowNumber = 9;
        row("larger, bar", chart, "rect 59,105 78x42 #00ff00", {705, 420});
        row("larger, line", chart, "line 45,378 661,378 #7f7f7f", {705, 420});
        row("larger, number", chart, "rect 0,0 27x27 #ffff00", {705, 420});
        row("larger, end", chart, "rect 352,42 78x3 #ff0000", {705, 420});
        chart = chartOf(QVector<int>(16, 1155), 1155);
        chart.bars.lower = 0;
        chart.bars.quantity = CellValue::Charge;
        row("charge", chart, "text '[mAh]' left 24,10 11 Times #ffffff");
        row("charge, a quarter", chart, "text '288' right 27,133 11 Times #ffffff");
        row("charge, on the scale", chart, "rect 406,28 20x140 #00ff00");
        row("charge, at the end", chartOf({100}), "rect 39,28 313x70 #00ff00");
        chart.bars.quantity = CellValue::Resistance;
        row("resistance", chart, "text '[Ri %]' left 24,10 11 Times #ffffff");
        row("narrow", chartOf({100}), "rect 39,28 1x70 #00ff00", {70, 280});
        row("two billion", chartOf({0}, 2147483647), "text '2147483647' right 27,28 5 Times #ffffff");
    }

    void details()
    {
        QFETCH(PowerChart, chart);
        QFETCH(QSize, size);
        QFETCH(QString, line);
        VERIFY_PAINTS(
            size, [&](QPainter &painter) { chart.paint(painter, size); }, line);
    }

    void offTheScaleOnly()
    {
        const PowerChart chart = chartOf({100, -100, 0});
        const auto paint = [&chart](QPainter &painter) { chart.paint(painter, smallest); };
        QVERIFY(!paintFault(smallest, paint, "all of it").contains("#ff0000"));
    }

    void followsRecordsAndSwitches();
    void keptResistancesStay();

private:
    static QByteArray fault(PowerDisplay &display, const char *line)
    {
        settle(display);
        return paintFault(display, line);
    }
};

void TestPowerDisplay::followsRecordsAndSwitches()
{
    WarningCollector warnings;
    ViewState state;
    PowerDisplay display;
    QVERIFY(display.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(display.windowTitle(), QString("Varnel - bar display"));
    QVERIFY(!display.windowIcon().isNull());
    QCOMPARE(display.sizeHint(), QSize(465, 364));
    QCOMPARE(display.minimumSize(), smallest);
    display.resize(smallest);
    display.setViewState(&state);
    QSignalSpy closed(&display, SIGNAL(closed()));
    display.show();
    QCOMPARE(fault(display, "text 'NO DATA' mid 235,140 53 Arial #ffffff"), QByteArray());
    QCOMPARE(fault(display, "rect 0,0 470x280 #000000"), QByteArray());
    Varnel3Data record = samplePack({4100, 4000});
    record.cells[0].balanceCharge = 80 * 360000;
    display.updateData(record, 3);
    QCOMPARE(fault(display, "rect 39,63 157x35 #00ff00"), QByteArray());
    QCOMPARE(fault(display, "text '3' mid 9,9 12 Arial #000000"), QByteArray());
    ViewSwitches switches;
    switches.cellValue = CellValue::Charge;
    state.setSwitches(switches);
    QCOMPARE(fault(display, "rect 39,56 157x112 #00ff00"), QByteArray());
    switches.blackBackground = false;
    state.setSwitches(switches);
    QCOMPARE(fault(display, "rect 0,0 470x280 #ffffff"), QByteArray());
    QCOMPARE(fault(display, "text '[mAh]' left 24,10 11 Times #000000"), QByteArray());
    display.setNoData();
    QCOMPARE(fault(display, "text 'NO DATA' mid 235,140 53 Arial #000000"), QByteArray());
    display.close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(warnings.warnings(), QStringList());
}

void TestPowerDisplay::keptResistancesStay()
{
    const char *const half = "rect 235,98 157x70 #00ff00"; // 50 % of the other cell
    ViewState state;
    PowerDisplay display;
    display.setViewState(&state);
    display.resize(smallest);
    display.show();
    Varnel3Data measured = sampleResistances({2.0, 3.0});
    Varnel3Data bare = samplePack({4100, 4000});
    const auto show = [&](const Varnel3Data &record, int window, bool useKept) {
        Varnel3Data shown = record;
        display.updateData(shown, window, useKept);
    };
    show(measured, 1, false);
    show(bare, 1, true); // not in the resistances' view: they are no reason to stay
    QCOMPARE(fault(display, "rect 39,63 157x35 #00ff00"), QByteArray());
    ViewSwitches switches;
    switches.cellValue = CellValue::Resistance;
    state.setSwitches(switches);
    show(measured, 1, false);
    show(bare, 1, true);
    QCOMPARE(fault(display, half), QByteArray());
    const QDateTime since({2026, 1, 2}, {3, 4, 5});
    display.setStaleSince(since);
    QCOMPARE(fault(display, qPrintable(QString(half) + " dim")), QByteArray());
    QCOMPARE(display.toolTip(), QString("No line since 03:04:05"));
    display.setStaleSince({});
    QCOMPARE(fault(display, half), QByteArray());
    QCOMPARE(display.toolTip(), QString());
    show(samplePack({}), 1, true); // nothing to keep them for
    QVERIFY(!fault(display, half).isEmpty());
    show(measured, 1, false);
    show(bare, 2, true); // another device's bars never stay
    QVERIFY(!fault(display, half).isEmpty());
    show(measured, 1, false);
    show(bare, 1, false);
    QVERIFY(!fault(display, half).isEmpty());
    show(measured, -1, false);
    QVERIFY(!fault(display, "rect 0,0 18x18 #ffff00").isEmpty()); // no window, no number
}

QTEST_MAIN(TestPowerDisplay)
#include "tst_powerdisplay.moc"
