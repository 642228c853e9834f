#include "series/seriesstore.h"
#include "data/voltageslope.h"
#include "support/columns.h"
#include "support/limits.h"
#include "support/seed.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
constexpr int firstFolded = SeriesStore::firstResistance() + 1;

/// Makes the records of one recording, whose nature is drawn once for it.
class Maker {
public:
    explicit Maker(unsigned seed)
        : m_random(seed)
    {
    }

    int between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(m_random); }
    bool oneIn(int cases) { return between(1, cases) == 1; }

    Varnel3Data next()
    {
        Varnel3Data record;
        record.device = m_device;
        record.mode = m_mode;
        m_time = sometimes(m_setBacks) ? between(0, 1000) : m_time + between(0, 3);
        record.setTime(m_time);
        for (int *figure : {&record.voltage, &record.current, &record.energy, &record.temperature})
            *figure = value();
        record.internalResistance = resistance();
        const bool marksItself = m_device != Varnel3Data::Varnel2 && m_device != Varnel3Data::Varnel2Plus;
        if (marksItself && sometimes(m_marks))
            record.flag4 = oneIn(2) ? 'E' : 'S';
        if (m_cells != 0 && !sometimes(m_silentCells))
            giveCells(&record);
        ++m_count;
        return record;
    }

private:
    bool sometimes(int perMille) { return between(0, 999) < perMille; }
    int perMille(int most) { return oneIn(2) ? 0 : between(1, most); }
    int value()
    {
        return m_isHostile && oneIn(3) ? between(lowest, highest) : oneIn(5) ? 0 : between(-300, 30000);
    }
    // Those included that make the folds hard: zeros, constants, steps.
    int resistance()
    {
        const int kinds[] = {value(), oneIn(3) ? 0 : between(20, 30), 47, m_count % 200 < 100 ? 10 : 9000, 0,
            between(-400, 400)};
        return kinds[m_resistanceKind];
    }
    void giveCells(Varnel3Data *record)
    {
        record->flag5 = 'B';
        record->cellCount = oneIn(50) ? between(lowest, highest) : m_cells;
        record->ballansingCurrent = 250 * between(0, 4);
        for (CellData &cell : record->cells) {
            cell.voltage = value();
            cell.balance = 10 * between(0, 10);
            cell.resistance = between(0, 9);
        }
        record->resistanceValid = oneIn(10);
        record->cellMin = value();
        record->cellMax = value();
        record->cellAverage = value();
    }

    std::mt19937 m_random;
    int m_device = between(Varnel3Data::Varnel3, Varnel3Data::NoDevice);
    int m_mode = between(Varnel3Data::Charge, Varnel3Data::Test);
    int m_cells = oneIn(3) ? 0 : between(-1, Varnel3Data::maxCells + 1); // 0: no cell data
    int m_silentCells = perMille(500); // records that have none though the others do
    int m_setBacks = perMille(50); // records at which the clock is set back
    int m_marks = perMille(100); // records with an end letter
    int m_resistanceKind = between(0, 5);
    bool m_isHostile = oneIn(4); // any 32 bits
    int m_time = 0;
    int m_count = 0;
};

/// All that a store says of its records, by the rules as they are worded: walking them again for every new
/// one.
class LiteralSeries {
public:
    /// The next record came live, or from a file, of which `records` are all so far.
    void take(const RecordList &records, bool live)
    {
        const int newest = int(points[SeriesStore::Time].size());
        const Varnel3Data &record = records[newest];
        cells = newest > 0 ? cells : record.flag5 != 'B' ? -1 : qBound(0, record.cellCount, 16);
        add(SeriesStore::Time, record.time);
        add(SeriesStore::Voltage, record.voltage / 1000.0);
        add(SeriesStore::Current, record.current / 1000.0);
        add(SeriesStore::Energy, record.energy);
        m_temperature = newest == 0 ? qint64(record.temperature) * 4
                                    : m_temperature - m_temperature / 4 + record.temperature;
        add(SeriesStore::Temperature, (newest == 0 ? record.temperature : double(m_temperature / 4)) / 10.0);
        const bool isSloped = newest >= firstFolded;
        const double rise = isSloped ? double(record.voltage) - records[newest - 1].voltage : 0.0;
        m_slope = m_slope - m_slope / 12 + rise * 12;
        add(SeriesStore::Dv, isSloped ? m_slope / 12 : 0.0);
        takeCells(record);
        live ? addLiveResistance(records, newest) : addLoadedResistance(records, newest);
        if (record.resistanceValid) {
            for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
                known[cell] = record.cells[cell].resistance > 0 ? record.cells[cell].resistance : known[cell];
        }
    }

    std::vector<double> points[SeriesStore::kindCount];
    int cells = -1; // that have a series; -1: not even their statistics have
    double known[Varnel3Data::maxCells] = {};

private:
    void add(int kind, double point) { points[kind].push_back(point); }
    void takeCells(const Varnel3Data &record)
    {
        for (int kind = SeriesStore::CellMin; cells >= 0 && kind < SeriesStore::Cell1 + cells; ++kind) {
            const double figures[] = {record.cellMin / 1000.0, record.cellMax / 1000.0,
                record.cellAverage / 1000.0, record.cellMax / 1000.0 - record.cellMin / 1000.0};
            const int cell = kind - SeriesStore::Cell1;
            add(kind,
                record.flag5 != 'B' ? points[kind].back()
                    : cell < 0      ? figures[kind - SeriesStore::CellMin]
                                    : record.cells[cell].voltage / 1000.0);
        }
    }
    void addLoadedResistance(const RecordList &records, int newest)
    {
        if (newest == firstFolded - 1)
            seed(records[newest].internalResistance);
        else
            add(SeriesStore::Resistance,
                newest < firstFolded ? 0.0 : fold(records, newest, records.size() - 1));
    }
    void addLiveResistance(const RecordList &records, int newest)
    {
        const bool isFolded = records.first().device == Varnel3Data::Varnel3;
        if (isFolded && newest == firstFolded - 1)
            return seed(records[newest - 1].internalResistance);
        double point = 0.0;
        for (int i = firstFolded; isFolded && i <= newest; ++i)
            point = fold(records, i, newest);
        add(SeriesStore::Resistance, point);
        if (isFolded && newest == firstFolded - 2) // gives the next point already
            add(SeriesStore::Resistance, records[newest].internalResistance);
    }
    void seed(int resistance)
    {
        m_resistance = qint64(resistance) * 4;
        points[SeriesStore::Resistance].assign(firstFolded, resistance);
    }
    double fold(const RecordList &records, int index, int newest)
    {
        qint64 value = records[index].internalResistance;
        if (value == 0 && index < newest)
            value
                = (qint64(records[index - 1].internalResistance) + records[index + 1].internalResistance) / 2;
        m_resistance = m_resistance - m_resistance / 4 + value;
        return double(m_resistance / 4);
    }

    qint64 m_temperature = 0;
    double m_slope = 0.0;
    qint64 m_resistance = 0;
};

// With the end marks that a file of them would have.
RecordList savedRecords(const SeriesStore &store)
{
    RecordList copy;
    for (int i = 0; i < store.size(); ++i)
        copy.appendNew() = store.record(i);
    return copy;
}

Varnel3Data recordOf(int device, int current = 0, int voltage = 0)
{
    Varnel3Data record;
    record.device = device;
    record.mode = Varnel3Data::Charge;
    record.current = current;
    record.voltage = voltage;
    return record;
}

Varnel3Data cellRecord(int cells)
{
    Varnel3Data record = recordOf(Varnel3Data::Varnel3);
    record.flag5 = 'B';
    record.cellCount = cells;
    return record;
}

} // namespace

class TestSeriesStore : public QObject {
    Q_OBJECT

private slots:
    void followsTheRules_data();
    void followsTheRules();
    void pointsByHand();
    void tellsSlopes();
    void balancerTimesAreSynthetic();
    void marksTheEnd_data();
    void marksTheEnd();
    void summarisesCapacity_data();
    void summarisesCapacity();
    void keepsKnownResistances();
    void movedSeriesIsEmpty();
    void manyRecordingsCostTheirData();

private:
    void loadInPieces(SeriesStore *store, RecordList records, Maker *maker);
    void compare(const SeriesStore &store, const LiteralSeries &literal, Maker *maker);
    void compareSeries(const PlotSeries &series, const std::vector<double> &literal, int first, Maker *maker);
};

void TestSeriesStore::followsTheRules_data()
{
    columns<int, int, unsigned>({"most", "recordings", "seed"});
    const unsigned seed = randomSeed();
    QTest::newRow("a few") << 40 << 200 << seed;
    QTest::newRow("blocks") << 700 << 60 << seed;
    QTest::newRow("slices") << 20000 << 10 << seed;
    QTest::newRow("series in one large block") << 262147 << 2 << seed;
}

/// Records appended one by one, and those of a file, loaded at once, in pieces, side by side, with some that
/// come live afterwards: as the rules have it, to the bit.
void TestSeriesStore::followsTheRules()
{
    QFETCH(int, most);
    QFETCH(int, recordings);
    QFETCH(unsigned, seed);
    quint64 revision = 0;
    for (const unsigned end = seed + unsigned(recordings); seed != end; ++seed) {
        Maker maker(seed);
        const int count = most < 100000 ? maker.between(1, most) : most;
        SeriesStore live;
        LiteralSeries literalLive;
        for (int i = 0; i < count; ++i) {
            live.append(maker.next());
            if (most < 1000)
                literalLive.take(live.records(), true);
        }
        if (most < 1000)
            compare(live, literalLive, &maker);
        SeriesStore loaded;
        loadInPieces(&loaded, savedRecords(live), &maker);
        QVERIFY(loaded.revision() != revision && loaded.revision() != live.revision());
        revision = loaded.revision();
        LiteralSeries literal;
        for (int i = 0; i < count; ++i)
            literal.take(loaded.records(), false);
        compare(loaded, literal, &maker);
        for (int i = maker.between(0, 150); i > 0; --i) {
            const Varnel3Data record = maker.next();
            live.append(record);
            loaded.append(record);
            literal.take(loaded.records(), true);
        }
        compare(loaded, literal, &maker);
        for (int i = 0; i < live.size(); ++i) {
            const Varnel3Data a = live.record(i);
            const Varnel3Data b = loaded.record(i);
            const bool sameCharge = a.balancedMah == b.balancedMah;
            // a balancer's lines have a clock of their own that a file does not keep
            QVERIFY(
                a.time == b.time && a.flag4 == b.flag4 && (sameCharge || a.device == Varnel3Data::Tandor));
        }
        QCOMPARE(loaded.capacity().energyAtMark, live.capacity().energyAtMark);
        if (QTest::currentTestFailed()) {
            qWarning("VARNEL_SEED=%u: %d records of %d", seed, count, live.size());
            return;
        }
    }
}

void TestSeriesStore::loadInPieces(SeriesStore *store, RecordList records, Maker *maker)
{
    if (maker->oneIn(4))
        return store->load(std::move(records));
    const int steps[] = {1, 127, 128, 129, 2048, 100000};
    const int step = maker->oneIn(2) ? steps[maker->between(0, 5)] : 0;
    store->beginLoad(std::move(records));
    int done = 0;
    for (bool more = true; more;) {
        const int next = step > 0 ? step : maker->between(0, 3000);
        more = store->loadSome(next);
        done = qMin(done + next, store->size());
        QCOMPARE(store->loadProgress(), double(done) / store->size());
    }
}

void TestSeriesStore::compare(const SeriesStore &store, const LiteralSeries &literal, Maker *maker)
{
    const RecordList &records = store.records();
    const std::vector<double> &times = literal.points[SeriesStore::Time];
    QCOMPARE(store.size(), int(times.size()));
    QCOMPARE(store.hasCellSeries(), literal.cells >= 0);
    QCOMPARE(store.cellSeriesCount(), qMax(0, literal.cells));
    QCOMPARE(store.hasCellData(), literal.cells > 0 && records.first().hasCellData());
    QCOMPARE(store.isTimeMonotone(), std::is_sorted(times.begin(), times.end()));
    for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
        QCOMPARE(store.knownResistance(cell), literal.known[cell]);
    for (int kind = 0; kind < SeriesStore::kindCount; ++kind) {
        // before the first one nothing counts, and then they have its value
        const bool begins = kind == SeriesStore::Resistance && store.size() < firstFolded;
        compareSeries(store.series(kind), literal.points[kind],
            begins ? qMin(store.size(), firstFolded - 1) : 0, maker);
        if (QTest::currentTestFailed())
            return qWarning("series %d", kind);
    }
}

void TestSeriesStore::compareSeries(
    const PlotSeries &series, const std::vector<double> &literal, int first, Maker *maker)
{
    const int size = series.size();
    QCOMPARE(size, int(literal.size()));
    if (size == 0)
        return;
    QVERIFY(std::memcmp(series.begin(), literal.data(), sizeof(double) * size_t(size)) == 0);
    for (int i = 0; i < 10; ++i) {
        const int begin = maker->between(0, size - 1);
        const int end = maker->between(begin + 1, size);
        const auto ends = std::minmax_element(literal.begin() + begin, literal.begin() + end);
        const Interval found = series.extremes(begin, end);
        QVERIFY(found.low == *ends.first && found.high == *ends.second);
    }
    if (first == 0) {
        const auto ends = std::minmax_element(literal.begin(), literal.end());
        QVERIFY(series.minimum() == *ends.first && series.maximum() == *ends.second);
    }
}

/// The same rules, worked out by hand.
void TestSeriesStore::pointsByHand()
{
    QVector<int> resistances(16, 100);
    resistances << 116 << 500 << 216 << 0 << 100;
    const int temperatures[] = {253, 260, 251, -40};
    SeriesStore live;
    QCOMPARE(live.loadProgress(), 1.0);
    for (int i = 0; i < resistances.size(); ++i) {
        Varnel3Data record = recordOf(Varnel3Data::Varnel3, 0, 1000 * (i % 2));
        record.internalResistance = resistances[i];
        record.temperature = temperatures[qMin(i, 3)];
        live.append(record);
    }
    SeriesStore loaded;
    loaded.load(savedRecords(live));
    const auto is = [](const SeriesStore &store, int kind, int from, const QVector<double> &points) {
        const PlotSeries &series = store.series(kind);
        return std::equal(points.begin(), points.end(), series.begin() + from);
    };
    // sums 1012, 1012-253+260 = 1019, 1019-254+251 = 1016, 1016-254-40 = 722
    QVERIFY(is(live, SeriesStore::Temperature, 0, {25.3, 25.4, 25.4, 18.0}));
    // 464-116+216 = 564; folds 216 and 0: 639, 480; folds 216, (216+100)/2 and 100: 576, 590, 543
    QVERIFY(is(live, SeriesStore::Resistance, 16, {116, 116, 141, 120, 135}));
    // 2000-500+216 = 1716; 1716-429+158 = 1445; 1445-361+100 = 1184
    QVERIFY(is(loaded, SeriesStore::Resistance, 16, {500, 500, 429, 361, 296}));
    QVERIFY(is(live, SeriesStore::Dv, 16, {0, 0, -1000, (-12000.0 + 1000 + 12000) / 12}));
}

void TestSeriesStore::tellsSlopes()
{
    const auto slopeOf = [](int before, int after) {
        SeriesStore store;
        for (int i = 0; i < 19; ++i)
            store.append(recordOf(Varnel3Data::Varnel3, 0, i < 18 ? before : after));
        return store.record(18).voltageSlope;
    };
    QCOMPARE(slopeOf(20000, 20007), 7);
    QCOMPARE(slopeOf(lowest, highest), highest);
    QCOMPARE(slopeOf(highest, lowest), -highest);
    SeriesStore store;
    for (int i = 0; i < 60; ++i)
        store.append(recordOf(Varnel3Data::Varnel3, 0, 7 * i));
    QCOMPARE(store.record(17).voltageSlope, noVoltageSlope);
    QCOMPARE(store.record(59).voltageSlope, 82); // 84 * (1 - (11/12)^42)
    QCOMPARE(store.records()[59].voltageSlope, 0); // as the device sent it
}

void TestSeriesStore::balancerTimesAreSynthetic()
{
    Varnel3Data record = cellRecord(3);
    record.device = Varnel3Data::Tandor;
    record.ballansingCurrent = 750;
    record.cells[1].balance = record.cells[3].balance = 100; // one of them beyond the cell count
    SeriesStore store;
    for (int time : {0, 0, 7000}) {
        record.setTime(time);
        store.append(record);
    }
    const Varnel3Data newest = store.record(2);
    QVERIFY(newest.time == 10 && newest.second == 10);
    QCOMPARE(newest.cells[1].balanceCharge, 100 * 750 * 7000); // by the line's own clock
    QCOMPARE(newest.cells[3].balanceCharge, 0);
    QCOMPARE(newest.balancedMah, 1458);
    store.load(savedRecords(store)); // and so they go on after a file, wherever the line's clock stands
    for (int time : {500, 7500}) {
        record.setTime(time);
        store.append(record);
    }
    QCOMPARE(store.record(3).time, 15);
    QCOMPARE(store.record(3).balancedMah, 1458);
    QCOMPARE(store.record(4).balancedMah, 2916);
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
    QTest::newRow("second gap") << int(Varnel3Data::Varnel2) << QVector<int>{5, 5, 5, 5, 0, 5, 5, 0, 5}
                                << "____EEEEE";
}

void TestSeriesStore::marksTheEnd()
{
    QFETCH(int, device);
    QFETCH(QVector<int>, currents);
    SeriesStore store;
    for (int current : currents) {
        store.append(recordOf(device, current));
        QCOMPARE(store.records().last().flag4, '_'); // what is stored stays
    }
    store.load(savedRecords(store));
    store.append(recordOf(device)); // goes on as the file has ended
    QString flags;
    for (int i = 0; i < store.size(); ++i)
        flags += QLatin1Char(store.record(i).flag4);
    const QString newest = flags.right(1);
    flags.chop(1);
    QTEST(flags, "flags");
    QCOMPARE(newest, flags.right(1));
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
    SeriesStore store;
    for (int i = 0; i < count; ++i) {
        Varnel3Data record = recordOf(Varnel3Data::Varnel3);
        record.mode = mode;
        record.energy = 100 * i;
        record.flag4 = i >= marked && marked >= 0 ? 'S' : '_';
        store.append(record);
    }
    const SeriesStore::Capacity capacity = store.capacity();
    QTEST(capacity.mode, "letter");
    QTEST(capacity.energyNow, "now");
    QTEST(capacity.energyAtMark, "atMark");
}

void TestSeriesStore::keepsKnownResistances()
{
    const QByteArray line = "!34,0" + QByteArray(",10").repeated(14);
    SeriesStore store;
    QVERIFY(!store.applyResistanceLine(line));
    store.append(cellRecord(6));
    const quint64 before = store.revision();
    QVERIFY(!store.applyResistanceLine("!1,2"));
    QCOMPARE(store.revision(), before);
    QVERIFY(store.applyResistanceLine(line));
    QVERIFY(store.revision() != before);
    QCOMPARE(store.records().last().cells[0].resistance, 3.4);
    QVERIFY(store.knownResistance(0) == 3.4 && store.knownResistance(1) == 0.0);
    QVERIFY(!store.newestLacksResistance());
    store.append(cellRecord(6));
    QVERIFY(store.newestLacksResistance());
    store.append(cellRecord(6));
    QVERIFY(!store.newestLacksResistance());
    store.clear();
    QVERIFY(store.isEmpty() && !store.newestLacksResistance() && store.knownResistance(0) == 0.0);
}

void TestSeriesStore::movedSeriesIsEmpty()
{
    PlotSeries from;
    for (int i = 0; i < 2 * PlotSeries::blockSize; ++i)
        from.append(i);
    const double *const points = from.begin();
    PlotSeries to = std::move(from);
    from.append(-7); // NOLINT(bugprone-use-after-move)
    QVERIFY(to.begin() == points && from.begin() != points);
    QCOMPARE(to.extremes(0, to.size()).high, 2.0 * PlotSeries::blockSize - 1);
    QVERIFY(
        from.size() == 1 && from.minimum() == -7 && from.maximum() == -7 && from.extremes(0, 1).low == -7);
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
