#include "series/literalseries.h"
#include "series/seriesstore.h"
#include "support/columns.h"
#include "support/limits.h"

#include <QtTest>

#include <limits>
#include <random>

namespace {

using Random = std::mt19937;

int between(Random &random, int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(random);
}

Varnel3Data chargerRecord(int device = Varnel3Data::Varnel3)
{
    Varnel3Data record;
    record.device = device;
    record.mode = Varnel3Data::Charge;
    record.cellCount = 6;
    record.cellType = 5;
    return record;
}

Varnel3Data cellRecord(int cells)
{
    Varnel3Data record = chargerRecord();
    record.flag5 = 'B';
    record.cellCount = cells;
    for (int i = 0; i < Varnel3Data::maxCells; ++i)
        record.cells[i].voltage = 3700 + 10 * i;
    record.cellMin = 3700;
    record.cellMax = 3750;
    record.cellAverage = 3725;
    return record;
}

// Values of one of several kinds, those included that make the folds hard: zeros, constants, steps, extremes.
int hardValue(Random &random, int kind, int index)
{
    switch (kind) {
    case 0:
        return between(random, 0, 300);
    case 1:
        return between(random, 0, 2) == 0 ? 0 : between(random, 20, 30);
    case 2:
        return 47;
    case 3:
        return index % 200 < 100 ? 10 : 9000;
    case 4:
        return between(random, -400, 400);
    case 5:
        return 0;
    default:
        return between(random, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    }
}

} // namespace

class TestSeriesStore : public QObject {
    Q_OBJECT

private slots:
    void derivesPointsByHand();
    void smoothsTemperature();
    void seedsResistanceOnePointAhead();
    void runningSeriesFollowTheRule_data();
    void runningSeriesFollowTheRule();
    void loadedResistanceIsOnePass();
    void balancerTimesAreSynthetic();
    void keepsCellSeriesInStep();
    void survivesHostileCellCounts_data();
    void survivesHostileCellCounts();
    void marksTheEnd_data();
    void marksTheEnd();
    void summarisesCapacity_data();
    void summarisesCapacity();
    void tellsLostResistance();
    void knowsExtremesAndOrder();
    void growsPastAnyCapacity();
    void manyRecordingsCostTheirData();
};

void TestSeriesStore::derivesPointsByHand()
{
    SeriesStore store;
    Varnel3Data record = chargerRecord();
    record.setTime(65);
    record.voltage = 24210;
    record.current = -1503;
    record.energy = 1234;
    store.append(record);
    QCOMPARE(store.series(SeriesStore::Time)[0], 65.0);
    QCOMPARE(store.series(SeriesStore::Voltage)[0], 24.21);
    QCOMPARE(store.series(SeriesStore::Current)[0], -1.503);
    QCOMPARE(store.series(SeriesStore::Energy)[0], 1234.0);
    QVERIFY(!store.hasCellSeries());
}

void TestSeriesStore::smoothsTemperature()
{
    SeriesStore store;
    Varnel3Data record = chargerRecord();
    const QVector<int> temperatures{253, 260, 251, -40};
    // sums 1012, 1012-253+260 = 1019, 1019-254+251 = 1016, 1016-254-40 = 722
    const QVector<double> expected{25.3, 25.4, 25.4, 18.0};
    for (int i = 0; i < temperatures.size(); ++i) {
        record.temperature = temperatures[i];
        store.append(record);
        QCOMPARE(store.series(SeriesStore::Temperature)[i], expected[i]);
    }
}

void TestSeriesStore::seedsResistanceOnePointAhead()
{
    SeriesStore store;
    const PlotSeries &points = store.series(SeriesStore::Resistance);
    Varnel3Data record = chargerRecord();
    for (int i = 0; i < 17; ++i) {
        record.internalResistance = 100 + i;
        store.append(record);
    }
    QCOMPARE(points[16], 0.0);
    QCOMPARE(points[17], 116.0);

    record.internalResistance = 500;
    store.append(record); // the 18th record does not touch its point
    QCOMPARE(points[17], 116.0);
    QCOMPARE(points[0], 116.0);
    QCOMPARE(points[16], 116.0);

    record.internalResistance = 216;
    store.append(record); // 464 - 116 + 216 = 564
    QCOMPARE(points[18], 141.0);
    record.internalResistance = 0;
    store.append(record); // folds 216 and 0: 639, 480
    QCOMPARE(points[19], 120.0);
    record.internalResistance = 100;
    store.append(record); // folds 216, (216+100)/2 and 100: 576, 590, 543
    QCOMPARE(points[20], 135.0);
}

void TestSeriesStore::runningSeriesFollowTheRule_data()
{
    QTest::addColumn<int>("kind");
    const char *names[] = {"plain", "zeros", "constant", "steps", "negative", "all zero", "32 bits"};
    for (int kind = 0; kind < int(std::size(names)); ++kind)
        QTest::newRow(names[kind]) << kind;
}

void TestSeriesStore::runningSeriesFollowTheRule()
{
    QFETCH(int, kind);
    for (unsigned seed = 1; seed <= 12; ++seed) {
        Random random(seed);
        SeriesStore store;
        LiteralSeries literal;
        for (int n = 0; n < 700; ++n) {
            Varnel3Data record = chargerRecord();
            record.internalResistance = hardValue(random, kind, n);
            record.voltage = hardValue(random, kind, n);
            store.append(record);
            literal.append(record);
            const auto last = size_t(n);
            if (store.series(SeriesStore::Resistance)[n] != literal.resistance[last]
                || store.series(SeriesStore::Dv)[n] != literal.dv[last]) {
                QFAIL(qPrintable(QStringLiteral("seed %1, record %2").arg(seed).arg(n)));
            }
        }
        QVERIFY(std::equal(literal.resistance.begin(), literal.resistance.end(),
            store.series(SeriesStore::Resistance).begin()));
        QVERIFY(std::equal(literal.dv.begin(), literal.dv.end(), store.series(SeriesStore::Dv).begin()));
    }
}

void TestSeriesStore::loadedResistanceIsOnePass()
{
    RecordList records;
    Varnel3Data record = chargerRecord(Varnel3Data::Varnel2); // whatever the device
    const int tail[] = {120, 0, 80, 0};
    for (int i = 0; i < 22; ++i) {
        record.internalResistance = i < 18 ? 100 : tail[i - 18];
        record.voltage = 1000 * (i % 2);
        records.append(record);
    }
    SeriesStore store;
    store.load(std::move(records));
    const PlotSeries &points = store.series(SeriesStore::Resistance);
    QCOMPARE(points.size(), 22);
    QCOMPARE(points[0], 100.0);
    QCOMPARE(points[17], 100.0);
    QCOMPARE(points[18], 105.0); // 400 - 100 + 120 = 420
    QCOMPARE(points[19], 103.0); // 420 - 105 + 100 = 415
    QCOMPARE(points[20], 98.0); // 415 - 103 + 80 = 392
    QCOMPARE(points[21], 73.0); // 392 - 98 + 0 = 294: the last one has no successor
    QCOMPARE(points.minimum(), 73.0);

    const PlotSeries &dv = store.series(SeriesStore::Dv);
    QCOMPARE(dv[17], 0.0);
    QCOMPARE(dv[18], -12000.0 / 12);
    QCOMPARE(dv[19], (-12000.0 - -12000.0 / 12 + 12000.0) / 12);
}

void TestSeriesStore::balancerTimesAreSynthetic()
{
    SeriesStore store;
    Varnel3Data record = cellRecord(3);
    record.device = Varnel3Data::Tandor;
    record.ballansingCurrent = 750;
    record.cells[1].balance = record.cells[3].balance = 100; // one of them beyond the cell count
    for (int time : {0, 0, 7000}) {
        record.setTime(time);
        store.append(record);
    }
    QCOMPARE(store.records()[2].time, 10);
    QCOMPARE(store.records()[2].cells[1].balanceCharge, 100 * 750 * 7000); // by the line's own clock
    QCOMPARE(store.records()[2].cells[3].balanceCharge, 0);
    QCOMPARE(store.records()[2].balancedMah, 1458);
    QCOMPARE(store.records()[2].second, 10);
    QCOMPARE(store.series(SeriesStore::Time)[2], 10.0);
}

void TestSeriesStore::keepsCellSeriesInStep()
{
    SeriesStore store;
    store.append(cellRecord(3));
    Varnel3Data without = chargerRecord();
    without.cells[0].voltage = 9999;
    store.append(without);
    Varnel3Data more = cellRecord(5);
    more.cellMin = 3600;
    store.append(more);

    QCOMPARE(store.cellSeriesCount(), 3);
    QCOMPARE(store.series(SeriesStore::CellDelta)[0], 3.75 - 3.7);
    QCOMPARE(store.series(SeriesStore::CellMin)[1], 3.7);
    QCOMPARE(store.series(SeriesStore::Cell1)[1], 3.7);
    QCOMPARE(store.series(SeriesStore::CellMin)[2], 3.6);
    for (int kind = 0; kind < SeriesStore::Cell1 + 3; ++kind)
        QCOMPARE(store.series(kind).size(), 3);
    QCOMPARE(store.series(SeriesStore::Cell1 + 3).size(), 0);
}

void TestSeriesStore::survivesHostileCellCounts_data()
{
    columns<int, int>({"count", "series"});
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("full") << 16 << 16;
    QTest::newRow("too many") << 99 << 16;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << 0;
}

void TestSeriesStore::survivesHostileCellCounts()
{
    QFETCH(int, count);
    SeriesStore store;
    Varnel3Data record = cellRecord(count);
    record.ballansingCurrent = std::numeric_limits<int>::max();
    record.cells[0].balance = std::numeric_limits<int>::max();
    for (int time : {0, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        record.setTime(time);
        record.voltage = time;
        record.temperature = time;
        store.append(record);
    }
    QTEST(store.cellSeriesCount(), "series");
    QVERIFY(!store.isTimeMonotone());
    QCOMPARE(store.series(SeriesStore::CellMin).size(), 3);
}

void TestSeriesStore::marksTheEnd_data()
{
    columns<int, QVector<int>, QString>({"device", "currents", "flags"});
    const QVector<int> gap{5, 5, 5, 5, 0, 5, 5, 0};
    QTest::newRow("gap") << int(Varnel3Data::Varnel2) << gap << "____EEEE";
    QTest::newRow("gap, other model") << int(Varnel3Data::Varnel2Plus) << gap << "____EEEE";
    QTest::newRow("device that says so itself") << int(Varnel3Data::Varnel3) << gap << "________";
    QTest::newRow("too early") << int(Varnel3Data::Varnel2) << QVector<int>{5, 5, 0, 5, 5, 5, 5} << "_______";
    QTest::newRow("earliest") << int(Varnel3Data::Varnel2) << QVector<int>{0, 0, 0, 5, 0, 5} << "____EE";
    QTest::newRow("longer pause") << int(Varnel3Data::Varnel2) << QVector<int>{5, 5, 5, 5, 0, 0, 5, 5}
                                  << "________";
}

void TestSeriesStore::marksTheEnd()
{
    QFETCH(int, device);
    QFETCH(QVector<int>, currents);
    SeriesStore store;
    for (int current : currents) {
        Varnel3Data record = chargerRecord(device);
        record.current = current;
        store.append(record);
    }
    QString flags;
    for (int i = 0; i < store.size(); ++i)
        flags += QLatin1Char(store.record(i).flag4);
    QTEST(flags, "flags");
}

void TestSeriesStore::summarisesCapacity_data()
{
    columns<int, int, int, char, int, int>({"mode", "count", "marked", "letter", "now", "atMark"});
    QTest::newRow("empty") << int(Varnel3Data::Charge) << 0 << -1 << 'C' << 0 << 0;
    QTest::newRow("charge, no mark") << int(Varnel3Data::Charge) << 8 << -1 << 'C' << 700 << 700;
    QTest::newRow("charge, marked") << int(Varnel3Data::Charge) << 8 << 2 << 'C' << 700 << 200;
    QTest::newRow("discharge, marked") << int(Varnel3Data::Discharge) << 6 << 0 << 'D' << 500 << 0;
    QTest::newRow("too short for a mark") << int(Varnel3Data::Charge) << 5 << 2 << 'C' << 400 << 400;
    QTest::newRow("other mode") << int(Varnel3Data::Test) << 8 << 2 << ' ' << 700 << 700;
}

void TestSeriesStore::summarisesCapacity()
{
    QFETCH(int, mode);
    QFETCH(int, count);
    QFETCH(int, marked);
    SeriesStore live;
    RecordList list;
    for (int i = 0; i < count; ++i) {
        Varnel3Data record = chargerRecord();
        record.mode = mode;
        record.energy = 100 * i;
        record.flag4 = i >= marked && marked >= 0 ? 'S' : '_';
        live.append(record);
        list.append(record);
    }
    SeriesStore loaded;
    loaded.load(std::move(list));
    for (const SeriesStore *store : {&live, &loaded}) {
        const SeriesStore::Capacity capacity = store->capacity();
        QTEST(capacity.mode, "letter");
        QTEST(capacity.energyNow, "now");
        QTEST(capacity.energyAtMark, "atMark");
    }
}

void TestSeriesStore::tellsLostResistance()
{
    const QByteArray line = "!34" + QByteArray(",10").repeated(15);
    SeriesStore store;
    QVERIFY(!store.applyResistanceLine(line));
    store.append(cellRecord(6));
    QVERIFY(!store.applyResistanceLine("!1,2"));
    QVERIFY(store.applyResistanceLine(line));
    QCOMPARE(store.records().last().cells[0].resistance, 3.4);
    QVERIFY(!store.newestLacksResistance());
    store.append(cellRecord(6));
    QVERIFY(store.newestLacksResistance());
    store.append(cellRecord(6));
    QVERIFY(!store.newestLacksResistance());
}

void TestSeriesStore::knowsExtremesAndOrder()
{
    SeriesStore store;
    Varnel3Data record = chargerRecord();
    for (int i = 0; i < 40; ++i) {
        record.setTime(10 * i);
        record.current = i == 20 ? -500 : 100 + i;
        record.internalResistance = 50;
        store.append(record);
    }
    QCOMPARE(store.series(SeriesStore::Current).minimum(), -0.5);
    QCOMPARE(store.series(SeriesStore::Current).maximum(), 0.139);
    QCOMPARE(store.series(SeriesStore::Resistance).minimum(), 50.0); // the zeros before it mean nothing
    QVERIFY(store.isTimeMonotone());
    record.setTime(5);
    store.append(record);
    QVERIFY(!store.isTimeMonotone());
}

void TestSeriesStore::growsPastAnyCapacity()
{
    SeriesStore store;
    Varnel3Data record = chargerRecord();
    const int count = 262144 + 3;
    for (int i = 0; i < count; ++i) {
        record.setTime(i);
        record.internalResistance = 40 + i % 3;
        store.append(record);
    }
    QCOMPARE(store.size(), count);
    QCOMPARE(store.series(SeriesStore::Time).last(), double(count - 1));
    QCOMPARE(store.series(SeriesStore::Time)[262143], 262143.0);
}

// Thirty devices that record for an hour: what is set aside for later must
// not add up to more than what is kept.
void TestSeriesStore::manyRecordingsCostTheirData()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer keeps memory of its own");
#endif
    std::vector<SeriesStore> stores(30);
    const int count = 4200;
    const qint64 before = residentBytes();
    for (int i = 0; i < count; ++i) {
        for (SeriesStore &store : stores)
            store.append(cellRecord(6));
    }
    const qint64 points = SeriesStore::Cell1 + 6;
    const qint64 data = qint64(stores.size()) * count * (qint64(sizeof(Varnel3Data)) + points * 8);
    const qint64 beyond = residentBytes() - before - data;
    QVERIFY2(beyond < 6000000, qPrintable(QString::number(beyond)));
}

QTEST_APPLESS_MAIN(TestSeriesStore)
#include "tst_seriesstore.moc"
