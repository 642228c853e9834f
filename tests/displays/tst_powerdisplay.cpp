#include "displays/powerdisplay.h"

#include "widgets/displayscale.h"
#include "displays/samplepack.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/pixels.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr QRgb green = qRgb(0, 255, 0);
constexpr QRgb black = qRgb(0, 0, 0);
constexpr QSize size{470, 280};

QImage paint(const PowerChart &chart)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(chart.blackGround ? Qt::black : Qt::white);
    QPainter painter(&image);
    chart.paint(painter, size);
    return image;
}

PowerChart chartOf(const QVector<int> &values, int lower = -100, int upper = 100)
{
    PowerChart chart;
    chart.bars.count = values.size();
    chart.bars.lower = lower;
    chart.bars.upper = upper;
    for (int i = 0; i < values.size(); ++i) {
        chart.bars.values[i] = values[i];
        chart.bars.known[i] = true;
    }
    return chart;
}

} // namespace

/// The bar display: values made from records, bars made from values.
class TestPowerDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void voltages()
    {
        Varnel3Data record = samplePack({4040, 3960, 4001, 3999});
        record.cells[1].balance = 130;
        record.cells[2].balance = -5;
        const PowerBars bars = PowerBars::of(record, CellValue::Voltage);
        QCOMPARE(bars.count, 4);
        QCOMPARE(bars.values[0], 40);
        QCOMPARE(bars.values[1], -40);
        QCOMPARE(bars.values[2], 1);
        QCOMPARE(bars.levels[1], 100);
        QCOMPARE(bars.levels[2], 0);
        record.cells[0].voltage = -2147483647;
        record.cellAverage = 2147483647;
        QVERIFY(PowerBars::of(record, CellValue::Voltage).values[0] < -1000000);
    }

    void charges()
    {
        for (const int charge : {40, 100, 1155}) { // mAh and a bit
            Varnel3Data record = samplePack({4000, 4000});
            record.cells[1].balanceCharge = charge * 360000 + 359999;
            const PowerBars bars = PowerBars::of(record, CellValue::Charge);
            QCOMPARE(bars.values[1], charge);
            QCOMPARE(bars.lower, 0);
            QCOMPARE(bars.upper, qMax(100, charge));
        }
    }

    void resistances_data()
    {
        // excess: per cent, -1: no bar
        columns<QVector<double>, QVector<int>>({"milliohms", "excess"});
        QTest::newRow("above the smallest") << QVector<double>{2.0, 2.5, 6.0} << QVector<int>{0, 25, 200};
        QTest::newRow("one without") << QVector<double>{0.0, 2.0, 3.0} << QVector<int>{-1, 0, 50};
        QTest::newRow("none") << QVector<double>{0.0, -1.0} << QVector<int>{-1, -1};
        QTest::newRow("large") << QVector<double>{200.0, 0.1} << QVector<int>{199900, 0};
    }

    void resistances()
    {
        QFETCH(QVector<double>, milliohms);
        QFETCH(QVector<int>, excess);
        const PowerBars bars = PowerBars::of(sampleResistances(milliohms), CellValue::Resistance);
        for (int i = 0; i < excess.size(); ++i) {
            QCOMPARE(bars.known[i], excess[i] >= 0);
            QCOMPARE(bars.values[i], qMax(0, excess[i]));
        }
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
        QFETCH(int, shown);
        Varnel3Data record = samplePack({4000, 4000, 4000, 4000});
        record.cellCount = cellCount;
        record.mode = mode;
        record.flag5 = flag;
        for (const CellValue quantity : {CellValue::Voltage, CellValue::Charge, CellValue::Resistance})
            QCOMPARE(PowerBars::of(record, quantity).count, shown);
    }

    void barHeights()
    {
        // 280 pixels: zero at 98, 100 mV are 70 pixels.
        const PowerChart chart = chartOf({40, -150, 0, 150, 100, -100});
        const QImage image = paint(chart);
        const auto column = [&chart](int cell) { return chart.valueRect(cell, size).center().x(); };
        const auto run = [&image](int x, int from, int to) {
            int count = 0;
            for (int y = from; y < to; ++y)
                count += image.pixel(x, y) == green;
            return count;
        };
        QCOMPARE(chart.valueRect(0, size).height(), 28);
        QCOMPARE(run(column(0), 0, 98), 28);
        QCOMPARE(image.pixel(column(0), 98 - 28), green);
        QCOMPARE(run(column(0), 99, 280), 0);

        // Off the scale: green to the end, closed by red, black two pixels inside it.
        const int low = chart.valueRect(1, size).bottom();
        QCOMPARE(low, 168);
        QCOMPARE(image.pixel(column(1), low), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(column(1), low - 1), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(column(1), low - 2), green);
        QCOMPARE(image.pixel(column(1), low - 3), black);
        QCOMPARE(image.pixel(column(1), low - 4), green);
        const int high = chart.valueRect(3, size).top();
        QCOMPARE(high, 28);
        QCOMPARE(image.pixel(column(3), high + 1), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(column(3), high + 3), black);
        QVERIFY(chart.valueRect(2, size).isEmpty());
        QCOMPARE(run(column(4), 0, 98), 70);
        QCOMPARE(run(column(5), 99, 280), 70);
    }

    void levels()
    {
        PowerChart chart = chartOf({0, 0, 0});
        chart.bars.levels = {100, 50, 0};
        const QImage image = paint(chart);
        QCOMPARE(chart.levelRect(0, size).height(), 42); // 0.15 of the height
        QCOMPARE(chart.levelRect(1, size).height(), 21);
        QCOMPARE(image.pixel(chart.levelRect(1, size).center()), qRgb(0, 255, 255));
        QCOMPARE(
            image.pixel(chart.levelRect(1, size).center().x(), chart.levelRect(1, size).top() - 3), black);
    }

    void displayFollowsRecordsAndSwitches();
    void keptResistancesStay();
};

namespace {

int pixelsOf(PowerDisplay &display, QRgb colour)
{
    settle(display);
    const QImage image = display.grab().toImage();
    return countOf(image, image.rect(), colour);
}

} // namespace

void TestPowerDisplay::displayFollowsRecordsAndSwitches()
{
    WarningCollector warnings;
    ViewState state;
    PowerDisplay display;
    display.setViewState(&state);
    display.resize(display.minimumSize());
    QSignalSpy closed(&display, SIGNAL(closed()));
    Varnel3Data record = samplePack({4100, 4000});
    record.cells[0].balanceCharge = 80 * 360000;
    display.updateData(record, 3);
    display.show();
    const int deviations = pixelsOf(display, green);
    QVERIFY(deviations > 0);
    QCOMPARE(display.grab().toImage().pixel(1, 1), qRgb(255, 255, 0)); // the window's number

    ViewSwitches switches;
    switches.cellValue = CellValue::Charge;
    state.setSwitches(switches);
    const int charges = pixelsOf(display, green);
    QVERIFY(charges > 0 && charges != deviations);
    switches.blackBackground = false;
    state.setSwitches(switches);
    QVERIFY(pixelsOf(display, qRgb(255, 255, 255)) > display.width() * display.height() / 2);
    QCOMPARE(pixelsOf(display, green), charges);

    display.setNoData();
    QCOMPARE(pixelsOf(display, green), 0);
    QVERIFY(pixelsOf(display, black) > 500); // "NO DATA"
    display.close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(warnings.warnings(), QStringList());
}

void TestPowerDisplay::keptResistancesStay()
{
    ViewState state;
    ViewSwitches switches;
    switches.cellValue = CellValue::Resistance;
    state.setSwitches(switches);
    PowerDisplay display;
    display.setViewState(&state);
    display.resize(display.minimumSize());
    display.show();
    Varnel3Data measured = sampleResistances({2.0, 3.0});
    Varnel3Data bare = samplePack({4000, 4000});
    display.updateData(measured, 1);
    display.updateData(bare, 1, true);
    const int bars = pixelsOf(display, green);
    QVERIFY(bars > 0);
    display.setStaleSince(QDateTime::currentDateTime());
    QCOMPARE(pixelsOf(display, green), 0); // dimmed
    display.setStaleSince({});
    QCOMPARE(pixelsOf(display, green), bars);
    display.updateData(bare, 2, true); // another device's bars never stay
    QCOMPARE(pixelsOf(display, green), 0);
    display.updateData(measured, 1);
    display.updateData(bare, 1, false);
    QCOMPARE(pixelsOf(display, green), 0);
}

QTEST_MAIN(TestPowerDisplay)
#include "tst_powerdisplay.moc"
