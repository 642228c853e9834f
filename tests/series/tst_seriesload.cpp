#include "series/seriesstore.h"

#include "support/seed.h"

#include <QtTest>

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>

namespace {

constexpr int firstFolded = SeriesStore::firstResistance() + 1;

/// What one recording is like, drawn once for it.
struct Nature {
    int device = Varnel3Data::Varnel3;
    int mode = Varnel3Data::Charge;
    int cells = 0; // 0: no cell data
    int silentCells = 0; // per mille of the records have none though the others do
    int setBacks = 0; // per mille of the records: the clock is set back
    int marks = 0; // per mille of the records carry an end mark
    bool hostile = false; // any 32 bits
};

class Maker {
public:
    explicit Maker(unsigned seed)
        : m_random(seed)
    {
        m_nature.device = between(Varnel3Data::Varnel3, Varnel3Data::NoDevice);
        m_nature.mode = between(Varnel3Data::Charge, Varnel3Data::Test);
        m_nature.cells = oneIn(3) ? 0 : between(1, Varnel3Data::maxCells);
        m_nature.silentCells = oneIn(2) ? 0 : between(1, 500);
        m_nature.setBacks = oneIn(2) ? 0 : between(1, 50);
        m_nature.marks = oneIn(2) ? 0 : between(1, 100);
        m_nature.hostile = oneIn(4);
    }

    int between(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_random);
    }
    bool oneIn(int cases) { return between(1, cases) == 1; }
    const Nature &nature() const { return m_nature; }

    Varnel3Data next()
    {
        Varnel3Data record;
        record.device = m_nature.device;
        record.mode = m_nature.mode;
        m_time = sometimes(m_nature.setBacks) ? between(0, 1000) : m_time + between(0, 3);
        record.setTime(m_time);
        for (int *figure : {&record.voltage, &record.current, &record.energy, &record.temperature,
                 &record.internalResistance})
            *figure = value();
        const bool marksItself
            = m_nature.device != Varnel3Data::Varnel2 && m_nature.device != Varnel3Data::Varnel2Plus;
        if (marksItself && sometimes(m_nature.marks))
            record.flag4 = 'E';
        if (m_nature.cells > 0 && !sometimes(m_nature.silentCells))
            giveCells(&record);
        return record;
    }

private:
    bool sometimes(int perMille) { return between(0, 999) < perMille; }
    int value()
    {
        if (m_nature.hostile && oneIn(3))
            return between(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        return oneIn(5) ? 0 : between(-300, 30000);
    }
    void giveCells(Varnel3Data *record)
    {
        record->flag5 = 'B';
        record->cellCount = oneIn(50) ? between(0, 99) : m_nature.cells;
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
    Nature m_nature;
    int m_time = 0;
};

qint64 literalValue(const RecordList &records, int index, int newest)
{
    const qint64 own = records[index].internalResistance;
    if (own != 0 || index == newest)
        return own;
    return (qint64(records[index - 1].internalResistance) + records[index + 1].internalResistance) / 2;
}

/// The running resistance of a file's records, and of those that come live
/// afterwards, as the rules are worded.
class LiteralResistance {
public:
    explicit LiteralResistance(const RecordList &records)
        : points(size_t(records.size()), 0.0)
    {
        const int newest = records.size() - 1;
        if (newest < SeriesStore::firstResistance())
            return;
        const int seed = records[SeriesStore::firstResistance()].internalResistance;
        std::fill_n(points.begin(), firstFolded, seed);
        m_accumulator = qint64(seed) * 4;
        for (int i = firstFolded; i <= newest; ++i) {
            fold(literalValue(records, i, newest));
            points[size_t(i)] = double(m_accumulator / 4);
        }
    }

    void append(const RecordList &records)
    {
        const int newest = records.size() - 1;
        if (records.first().device != Varnel3Data::Varnel3) {
            points.push_back(0.0);
        } else if (newest == SeriesStore::firstResistance()) {
            const int seed = records[newest - 1].internalResistance;
            m_accumulator = qint64(seed) * 4;
            points.assign(firstFolded, seed);
        } else if (newest < firstFolded) {
            points.push_back(0.0);
            if (newest == SeriesStore::firstResistance() - 1) // gives the next point already
                points.push_back(records[newest].internalResistance);
        } else {
            for (int i = firstFolded; i <= newest; ++i)
                fold(literalValue(records, i, newest));
            points.push_back(double(m_accumulator / 4));
        }
    }

    std::vector<double> points;

private:
    void fold(qint64 value) { m_accumulator = m_accumulator - m_accumulator / 4 + value; }

    qint64 m_accumulator = 0;
};

// With the end marks that a file of them would have.
RecordList savedRecords(const SeriesStore &store)
{
    RecordList copy;
    for (int i = 0; i < store.size(); ++i)
        copy.appendNew() = store.record(i);
    return copy;
}

bool sameBits(const double *a, const double *b, int count)
{
    return count == 0 || std::memcmp(a, b, sizeof(double) * size_t(count)) == 0;
}

} // namespace

/// What a file's records give when they are loaded at once, in pieces, side by side, against the same records
/// appended one by one: the same, to the bit.
class TestSeriesLoad : public QObject {
    Q_OBJECT

private slots:
    void loadsAsAppended_data();
    void loadsAsAppended();

private:
    void loadInPieces(SeriesStore *store, RecordList records, Maker *maker);
    void compare(const SeriesStore &loaded, const SeriesStore &live, Maker *maker);
    void compareSeries(const PlotSeries &loaded, const PlotSeries &live, int count, Maker *maker);
    void compareResistance(const SeriesStore &loaded, const LiteralResistance &literal);
    void compareCharge(const SeriesStore &loaded, const SeriesStore &live);
};

void TestSeriesLoad::loadsAsAppended_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("recordings");
    QTest::addColumn<unsigned>("seed");
    const unsigned seed = randomSeed();
    QTest::newRow("a few") << 40 << 200 << seed;
    QTest::newRow("blocks") << 700 << 100 << seed;
    QTest::newRow("slices") << 20000 << 15 << seed;
    QTest::newRow("series in one large block") << 170000 << 2 << seed;
    // found before: records of a file and live ones make exactly as many as seed the resistance
    for (unsigned found : {4066957480U, 774125150U, 914542869U, 2857894241U})
        QTest::addRow("seed %u", found) << 40 << 1 << found;
}

void TestSeriesLoad::loadsAsAppended()
{
    QFETCH(int, most);
    QFETCH(int, recordings);
    QFETCH(unsigned, seed);
    quint64 revisionBefore = 0;
    for (const unsigned end = seed + unsigned(recordings); seed != end; ++seed) {
        Maker maker(seed);
        const int count = most < 100000 ? maker.between(1, most) : most;
        const int afterwards = maker.between(0, 150);
        SeriesStore live;
        for (int i = 0; i < count; ++i)
            live.append(maker.next());
        SeriesStore loaded;
        loadInPieces(&loaded, savedRecords(live), &maker);
        QVERIFY(loaded.revision() != revisionBefore && loaded.revision() != live.revision());
        revisionBefore = loaded.revision();
        LiteralResistance literal(loaded.records());
        compare(loaded, live, &maker);
        compareResistance(loaded, literal);
        for (int i = 0; i < afterwards && !QTest::currentTestFailed(); ++i) {
            const Varnel3Data record = maker.next();
            live.append(record);
            loaded.append(record);
            literal.append(loaded.records());
        }
        compare(loaded, live, &maker);
        compareResistance(loaded, literal);
        compareCharge(loaded, live);
        if (QTest::currentTestFailed()) {
            qWarning("VARNEL_SEED=%u: %d records, %d afterwards", seed, count, afterwards);
            return;
        }
    }
}

void TestSeriesLoad::loadInPieces(SeriesStore *store, RecordList records, Maker *maker)
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

void TestSeriesLoad::compare(const SeriesStore &loaded, const SeriesStore &live, Maker *maker)
{
    QCOMPARE(loaded.size(), live.size());
    QCOMPARE(loaded.device(), live.device());
    QCOMPARE(loaded.hasCellSeries(), live.hasCellSeries());
    QCOMPARE(loaded.cellSeriesCount(), live.cellSeriesCount());
    QCOMPARE(loaded.isTimeMonotone(), live.isTimeMonotone());
    QCOMPARE(loaded.newestLacksResistance(), live.newestLacksResistance());
    const SeriesStore::Capacity a = loaded.capacity();
    const SeriesStore::Capacity b = live.capacity();
    QCOMPARE(std::make_tuple(a.energyNow, a.mode, a.energyAtMark),
        std::make_tuple(b.energyNow, b.mode, b.energyAtMark));
    for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
        QCOMPARE(loaded.knownResistance(cell), live.knownResistance(cell));
    for (int i = 0; i < live.size(); ++i) {
        const Varnel3Data record = loaded.record(i);
        if (record.time != live.record(i).time || record.flag4 != live.record(i).flag4)
            QFAIL(qPrintable(QStringLiteral("record %1").arg(i)));
    }
    for (int kind = 0; kind < SeriesStore::kindCount; ++kind) {
        if (kind != SeriesStore::Resistance)
            compareSeries(loaded.series(kind), live.series(kind), live.series(kind).size(), maker);
        if (QTest::currentTestFailed()) {
            qWarning("series %d", kind);
            return;
        }
    }
}

void TestSeriesLoad::compareSeries(const PlotSeries &loaded, const PlotSeries &live, int count, Maker *maker)
{
    QCOMPARE(loaded.size(), count);
    QVERIFY(sameBits(loaded.begin(), live.begin(), count));
    QCOMPARE(loaded.minimum(), live.minimum());
    QCOMPARE(loaded.maximum(), live.maximum());
    for (int i = 0; i < 10 && count > 0; ++i) {
        const int begin = maker->between(0, count - 1);
        const int end = maker->between(begin + 1, count);
        const auto literal = std::minmax_element(loaded.begin() + begin, loaded.begin() + end);
        for (const PlotSeries *series : {&loaded, &live}) {
            const Interval found = series->extremes(begin, end);
            QVERIFY(found.low == *literal.first && found.high == *literal.second);
        }
    }
}

void TestSeriesLoad::compareResistance(const SeriesStore &loaded, const LiteralResistance &literal)
{
    const PlotSeries &points = loaded.series(SeriesStore::Resistance);
    const auto count = int(literal.points.size());
    QCOMPARE(points.size(), count);
    QVERIFY(sameBits(points.begin(), literal.points.data(), count));
    if (loaded.size() < firstFolded)
        return;
    // what stands before the first one counts for a range as it is drawn, with the first one's value
    const auto ends = std::minmax_element(literal.points.begin(), literal.points.end());
    QCOMPARE(points.minimum(), *ends.first);
    QCOMPARE(points.maximum(), *ends.second);
    const Interval all = points.extremes(0, count);
    QVERIFY(all.low == *ends.first && all.high == *ends.second);
}

// A balancer's lines have a clock of their own that a file does not keep.
void TestSeriesLoad::compareCharge(const SeriesStore &loaded, const SeriesStore &live)
{
    if (loaded.device() == Varnel3Data::Tandor)
        return;
    for (int i = 0; i < live.size(); ++i) {
        if (loaded.records()[i].balancedMah != live.records()[i].balancedMah)
            QFAIL(qPrintable(QStringLiteral("charge of record %1").arg(i)));
    }
}

QTEST_APPLESS_MAIN(TestSeriesLoad)
#include "tst_seriesload.moc"
