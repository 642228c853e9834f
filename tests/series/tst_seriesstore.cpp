#include "series/seriesstore.h"
#include "data/voltageslope.h"
#include "support/records.h"
#include "support/seed.h"

#include <QtTest>

#include <cstring>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
constexpr int firstFolded = SeriesStore::firstResistance() + 1;

/// A device that does not tell the end of its processes.
bool isWithoutLetter(int device)
{
    return device == Varnel3Data::Varnel2 || device == Varnel3Data::Varnel2Plus;
}

/// Makes the records of one recording, whose nature is drawn once for it.
class Maker : public RandomRecords {
public:
    using RandomRecords::RandomRecords;

    bool oneIn(int cases) { return between(1, cases) == 1; }

    QByteArray resistanceLine()
    {
        return "!" + QByteArray::number(between(0, 9)) + ",34" + QByteArray(",0").repeated(14);
    }
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
        if (!isWithoutLetter(m_device) && sometimes(m_marks))
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
    int cellValue() { return m_isHostile ? value() : m_leastOfCells + value(); }
    // Those included that make the folds hard: zeros, constants, steps.
    int resistance()
    {
        const int kinds[] = {value(), oneIn(3) ? 0 : between(20, 30), m_count < 140 ? 47 : 9000,
            m_count % 200 < 100 ? 10 : 9000, 0, between(-400, 400)};
        return kinds[m_resistanceKind];
    }
    void giveCells(Varnel3Data *record)
    {
        record->flag5 = 'B';
        record->cellCount = oneIn(50) ? between(lowest, highest) : m_cells;
        record->ballansingCurrent = 250 * between(0, 4);
        for (CellData &cell : record->cells) {
            cell.voltage = cellValue();
            cell.balance = 10 * between(0, 10);
        }
        record->cellMin = cellValue();
        record->cellMax = cellValue();
        record->cellAverage = cellValue();
    }

    int m_device = between(Varnel3Data::Varnel3, Varnel3Data::NoDevice);
    int m_mode = between(Varnel3Data::Charge, Varnel3Data::Test);
    int m_cells = oneIn(3) ? 0 : between(-1, Varnel3Data::maxCells + 1); // 0: no cell data
    int m_silentCells = perMille(500); // records that have none though the others do
    int m_leastOfCells = oneIn(2) ? 1000 : 0; // mV, so that one that is silent is seen
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
    /// `file` holds its records with their balanced charge and end marks.
    void load(const RecordList &file)
    {
        for (int i = 0; i < file.size(); ++i)
            records.push_back(file[i]);
        m_lastTime = file.first().time;
        for (newest = 0; newest < file.size(); ++newest) {
            const Varnel3Data &record = records[size_t(newest)];
            addPoints(record);
            addLoadedResistance();
            noteResistances(record);
            if (record.flag5 != 'B')
                continue;
            m_lastTime = record.time;
            for (int cell = 0; cell < qBound(0, record.cellCount, 16); ++cell)
                m_charge[cell] = record.cells[cell].balanceCharge;
        }
        m_isLoaded = true;
    }
    void append(Varnel3Data record)
    {
        const int device = newest > 0 ? records.front().device : record.device;
        if (newest == 0 || (m_isLoaded && device == Varnel3Data::Tandor)) // which has a clock of its own
            m_lastTime = record.time;
        if (m_isLoaded && isWithoutLetter(device) && records.back().flag4 == 'E')
            markedFrom = newest;
        m_isLoaded = false;
        sumCharge(&record);
        if (device == Varnel3Data::Tandor)
            record.setTime(5 * newest);
        records.push_back(record);
        addPoints(record);
        addLiveResistance();
        const auto hasCurrent = [this](int before) { return records[size_t(newest - before)].current != 0; };
        if (isWithoutLetter(device) && newest >= 5 && hasCurrent(2) && !hasCurrent(1) && hasCurrent(0))
            markedFrom = qMin(markedFrom, newest - 1);
        ++newest;
    }
    void applyResistances(const QByteArray &line)
    {
        records.back().parseResistanceLine(QString::fromLatin1(line));
        noteResistances(records.back());
    }
    char flag(int index) const { return index >= markedFrom ? 'E' : records[size_t(index)].flag4; }

    std::vector<Varnel3Data> records; // as they are kept
    std::vector<double> points[SeriesStore::kindCount];
    int cells = -1; // that have a series; -1: not even their statistics have
    double known[Varnel3Data::maxCells] = {};

private:
    void add(int kind, double point) { points[kind].push_back(point); }
    void addPoints(const Varnel3Data &record)
    {
        cells = newest > 0 ? cells : record.flag5 != 'B' ? -1 : qBound(0, record.cellCount, 16);
        add(SeriesStore::Time, record.time);
        add(SeriesStore::Voltage, record.voltage / 1000.0);
        add(SeriesStore::Current, record.current / 1000.0);
        add(SeriesStore::Energy, record.energy);
        m_temperature = newest == 0 ? qint64(record.temperature) * 4
                                    : m_temperature - m_temperature / 4 + record.temperature;
        add(SeriesStore::Temperature, (newest == 0 ? record.temperature : double(m_temperature / 4)) / 10.0);
        const bool isSloped = newest >= firstFolded;
        const double rise = isSloped ? double(record.voltage) - records[size_t(newest - 1)].voltage : 0.0;
        m_slope = m_slope - m_slope / 12 + rise * 12;
        add(SeriesStore::Dv, isSloped ? m_slope / 12 : 0.0);
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
    void addLoadedResistance()
    {
        if (newest == firstFolded - 1)
            seed(resistance(newest));
        else
            add(SeriesStore::Resistance, newest < firstFolded ? 0.0 : fold(newest, int(records.size()) - 1));
    }
    void addLiveResistance()
    {
        const bool isFolded = records.front().device == Varnel3Data::Varnel3;
        if (isFolded && newest == firstFolded - 1)
            return seed(resistance(newest - 1));
        double point = 0.0;
        for (int i = firstFolded; isFolded && i <= newest; ++i)
            point = fold(i, newest);
        add(SeriesStore::Resistance, point);
        if (isFolded && newest == firstFolded - 2) // gives the next point already
            add(SeriesStore::Resistance, resistance(newest));
    }
    int resistance(int index) const { return records[size_t(index)].internalResistance; }
    void seed(int value)
    {
        m_resistance = qint64(value) * 4;
        points[SeriesStore::Resistance].assign(firstFolded, value);
    }
    double fold(int index, int last)
    {
        qint64 value = resistance(index);
        if (value == 0 && index < last)
            value = (qint64(resistance(index - 1)) + resistance(index + 1)) / 2;
        m_resistance = m_resistance - m_resistance / 4 + value;
        return double(m_resistance / 4);
    }
    void sumCharge(Varnel3Data *record)
    {
        for (int cell = 0; record->flag5 == 'B' && cell < qBound(0, record->cellCount, 16); ++cell) {
            CellData &data = record->cells[cell];
            m_charge[cell] += qint64(data.balance) * record->ballansingCurrent * (record->time - m_lastTime);
            data.balanceCharge = int(qBound(qint64(lowest), m_charge[cell], qint64(highest)));
        }
        m_lastTime = record->flag5 == 'B' ? record->time : m_lastTime;
        record->balancedMah = record->maxBalanceChargeMah();
    }
    void noteResistances(const Varnel3Data &record)
    {
        for (int cell = 0; record.resistanceValid && cell < Varnel3Data::maxCells; ++cell)
            known[cell] = record.cells[cell].resistance > 0 ? record.cells[cell].resistance : known[cell];
    }

    int newest = 0; // index
    int markedFrom = highest;
    bool m_isLoaded = false; // and nothing appended since
    qint64 m_temperature = 0;
    double m_slope = 0.0;
    qint64 m_resistance = 0;
    qint64 m_charge[Varnel3Data::maxCells] = {};
    int m_lastTime = 0;
};

Varnel3Data cellRecord(int cells)
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.flag5 = 'B';
    record.cellCount = cells;
    return record;
}

// What a file of them would have.
RecordList savedRecords(const SeriesStore &store)
{
    RecordList copy;
    for (int i = 0; i < store.size(); ++i)
        copy.append(store.record(i));
    return copy;
}

void loadInPieces(SeriesStore *store, RecordList records, Maker *maker)
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

void compareSeries(const PlotSeries &series, const std::vector<double> &literal, bool hasRange, Maker *maker)
{
    const int size = series.size();
    QCOMPARE(size, int(literal.size()));
    if (size == 0)
        return;
    std::vector<double> points(static_cast<size_t>(size));
    series.copy(0, size, points.data());
    QVERIFY(std::memcmp(points.data(), literal.data(), sizeof(double) * size_t(size)) == 0);
    for (int i = 0; i < 10; ++i) {
        const int begin = maker->between(0, size - 1);
        const int end = maker->between(begin + 1, size);
        const auto ends = std::minmax_element(literal.begin() + begin, literal.begin() + end);
        const Interval found = series.extremes(begin, end);
        QVERIFY(found.low == *ends.first && found.high == *ends.second);
    }
    const auto ends = std::minmax_element(literal.begin(), literal.end());
    QVERIFY(!hasRange || (series.minimum() == *ends.first && series.maximum() == *ends.second));
}

void compareRecords(const SeriesStore &store, const LiteralSeries &literal)
{
    int marked = -1;
    for (int i = 0; i < store.size(); ++i) {
        const Varnel3Data shown = store.record(i);
        const Varnel3Data &kept = literal.records[size_t(i)];
        const double slope
            = qBound(-double(highest), literal.points[SeriesStore::Dv][size_t(i)], double(highest));
        bool same = shown.voltageSlope == (i < firstFolded ? noVoltageSlope : qRound(slope))
            && shown.flag4 == literal.flag(i) && store.records()[i].flag4 == kept.flag4
            && shown.time == kept.time && shown.second == kept.second
            && shown.balancedMah == kept.balancedMah;
        for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
            same = same && shown.cells[cell].balanceCharge == kept.cells[cell].balanceCharge;
        QVERIFY2(same, qPrintable(QString::number(i)));
        marked = marked < 0 && shown.flag4 != '_' ? i : marked;
    }
    const Varnel3Data &newest = literal.records.back();
    const int mode = literal.records.front().mode;
    const bool hasMark = mode <= Varnel3Data::Discharge && store.size() > 5 && marked >= 0;
    const SeriesStore::Capacity capacity = store.capacity();
    QCOMPARE(capacity.mode, mode == Varnel3Data::Charge ? 'C' : mode == Varnel3Data::Discharge ? 'D' : ' ');
    QCOMPARE(capacity.energyNow, newest.energy);
    QCOMPARE(capacity.energyAtMark, hasMark ? literal.records[size_t(marked)].energy : newest.energy);
    QCOMPARE(store.newestLacksResistance(),
        store.size() > 1 && newest.cells[0].resistance == 0.0
            && literal.records[size_t(store.size() - 2)].cells[0].resistance > 0.0);
}

void compare(const SeriesStore &store, const LiteralSeries &literal, Maker *maker)
{
    const std::vector<double> &times = literal.points[SeriesStore::Time];
    QCOMPARE(store.size(), int(times.size()));
    QCOMPARE(store.device(), literal.records.front().device);
    QCOMPARE(store.hasCellSeries(), literal.cells >= 0);
    QCOMPARE(store.cellSeriesCount(), qMax(0, literal.cells));
    QCOMPARE(store.hasCellData(), literal.cells > 0 && literal.records.front().hasCellData());
    QCOMPARE(store.isTimeMonotone(), std::is_sorted(times.begin(), times.end()));
    for (int cell = 0; cell < Varnel3Data::maxCells; ++cell)
        QCOMPARE(store.knownResistance(cell), literal.known[cell]);
    for (int kind = 0; kind < SeriesStore::kindCount; ++kind) {
        // resistances begin late, and the points before then have the value of the first
        const bool hasRange = kind != SeriesStore::Resistance || store.size() >= firstFolded
            || store.device() != Varnel3Data::Varnel3;
        compareSeries(store.series(kind), literal.points[kind], hasRange, maker);
        if (QTest::currentTestFailed())
            return qWarning("series %d", kind);
    }
    compareRecords(store, literal);
}

} // namespace

class TestSeriesStore : public QObject {
    Q_OBJECT

private slots:
    // Records appended one by one, and those of a file, loaded at once, in pieces, side by side, with some
    // that come live afterwards: as the rules have it, to the bit.
    void followsTheRules()
    {
        const unsigned first = randomSeed();
        unsigned seed = first;
        // The largest needs one large block for its series.
        for (const auto &[most, recordings] : {std::pair(40, 300), {700, 60}, {20000, 10}, {262147, 1}}) {
            for (const unsigned last = seed + unsigned(recordings); seed != last; ++seed) {
                followOne(seed, most);
                if (QTest::currentTestFailed())
                    return qWarning("VARNEL_SEED=%u, recording %u of up to %d", first, seed - first, most);
            }
        }
    }

    void intervalsZoomAboutTheirEnds() // where the centre lies beside them
    {
        const Interval interval{2.0, 4.0};
        QCOMPARE(interval.zoomed(2.0, 9.0, 0.1, {0.0, 10.0}).low, 3.0);
        QCOMPARE(interval.zoomed(2.0, 0.0, 0.1, {0.0, 10.0}).high, 3.0);
    }

    void isEmptyAgain()
    {
        SeriesStore store;
        QVERIFY(!store.applyResistanceLine(Maker(1).resistanceLine()));
        store.append(cellRecord(6));
        QVERIFY(store.applyResistanceLine(Maker(1).resistanceLine()));
        const quint64 before = store.revision();
        QVERIFY(!store.applyResistanceLine("!1,2") && store.revision() == before);
        store.clear();
        QVERIFY(store.isEmpty() && store.loadProgress() == 1.0 && store.revision() != before);
        QVERIFY(!store.newestLacksResistance() && store.knownResistance(0) == 0.0);
        QVERIFY(store.capacity().mode == 'C' && store.capacity().energyAtMark == 0);
    }

private:
    void followOne(unsigned seed, int most)
    {
        Maker maker(seed);
        const int count = most < 100000 ? maker.between(1, most) : most;
        SeriesStore live;
        LiteralSeries literal;
        grow(&live, most < 1000 ? &literal : nullptr, count, &maker);
        if (most < 1000)
            compare(live, literal, &maker);
        SeriesStore loaded;
        loaded.append(cellRecord(6)); // is forgotten
        loadInPieces(&loaded, savedRecords(live), &maker);
        QVERIFY(loaded.revision() != live.revision());
        LiteralSeries literalLoaded;
        literalLoaded.load(savedRecords(live));
        compare(loaded, literalLoaded, &maker);
        grow(&loaded, &literalLoaded, maker.between(0, 150), &maker);
        compare(loaded, literalLoaded, &maker);
    }
    // By `count` records and some resistances.
    static void grow(SeriesStore *store, LiteralSeries *literal, int count, Maker *maker)
    {
        for (int i = 0; i < count; ++i) {
            const quint64 before = store->revision();
            const Varnel3Data record = maker->next();
            store->append(record);
            if (literal)
                literal->append(record);
            const quint64 after = store->revision();
            QVERIFY(after != before);
            if (!maker->oneIn(10))
                continue;
            const QByteArray line = maker->resistanceLine();
            QVERIFY(store->applyResistanceLine(line) && store->revision() != after);
            if (literal)
                literal->applyResistances(line);
        }
    }
};

QTEST_APPLESS_MAIN(TestSeriesStore)
#include "tst_seriesstore.moc"
