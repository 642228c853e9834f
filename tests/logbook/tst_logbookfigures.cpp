#include "data/records/recordlist.h"
#include "logbook/logbookfigures.h"
#include "series/seriesstore.h"

#include <QtTest>

namespace {

/// One of a charger with two cells; `time` in s, in mV and mA, `end` and `mark` as flags.
Varnel3Data record(int time, int voltage, int current, char end = '_', char mark = '_')
{
    Varnel3Data data;
    data.device = Varnel3Data::Varnel3;
    data.mode = Varnel3Data::Discharge;
    data.cellType = 5;
    data.cellCount = 2;
    data.setTime(time);
    data.voltage = voltage;
    data.current = current;
    data.energy = time;
    data.flag3 = end;
    data.flag4 = mark;
    data.flag5 = 'B';
    data.cells[0].voltage = data.cellMax = voltage / 2 + 15;
    data.cells[1].voltage = data.cellMin = voltage / 2 - 15;
    return data;
}

LogbookFigures figuresOf(const QVector<Varnel3Data> &records)
{
    SeriesStore store;
    RecordList list;
    for (const Varnel3Data &data : records)
        list.append(data);
    store.load(std::move(list));
    LogbookFigures figures = LogbookFigures::of(store);
    LogbookReckoning slow(store);
    while (slow.goOn(3)) { }
    if (slow.figures() != figures)
        figures.records = -1;
    return figures;
}

} // namespace

/// What a recording comes to.
class TestLogbookFigures : public QObject {
    Q_OBJECT

private slots:
    // By hand: trapezia of 10 W and 24 W over 10 s, 24 W over 10 s, 24 W and 0 W over 20 s.
    void byHand()
    {
        QVector<Varnel3Data> records = {
            record(5, 10000, 1000), record(15, 12000, 2000), record(25, 12000, 2000), record(45, 11000, 0)};
        for (int i = 0; i < 4; ++i)
            records[i].temperature = 330 - 10 * i;
        records[1].internalResistance = 1;
        records[2].cells[0].resistance = 6.5;
        records[2].cells[1].resistance = 7.5;
        records[2].resistanceValid = true;
        const LogbookFigures figures = figuresOf(records);
        QCOMPARE(figures.energy, (170.0 + 240.0 + 240.0) / 3600);
        const LogbookFigures expected = {4, Varnel3Data::Varnel3, Varnel3Data::Discharge, 5, 2, 40, 45,
            figures.energy, 10000, 11000, 330, 1, {6.5F, 7.5F}, 30, 1, Varnel3Data::NoEnd, figures.curve};
        QVERIFY(figures == expected && figures.hasCellResistances());
        QCOMPARE(LogbookFigures::ofFirst(records[0]).endVoltage, 10000);
        // From 10 V to 12 V in a quarter of the time, then level for one, then down to 11 V.
        QCOMPARE(figures.curve.size(), LogbookFigures::curvePoints);
        const auto height = [&](double share) { return int(uchar(figures.curve[qRound(share * 63)])); };
        QCOMPARE(height(0.0), 0);
        QVERIFY(qAbs(height(0.125) - 128) < 5);
        QCOMPARE(height(0.3), 255);
        QVERIFY(qAbs(height(0.75) - 192) < 3);
        QVERIFY(qAbs(height(1.0) - 128) < 2);
    }

    // All counts to the mark or letter; six records are needed for a mark.
    void counted()
    {
        struct Case {
            int count, letterAt;
            char letter;
            int markAt, last, end;
        };
        const Case cases[] = {{0, -1, '_', -1, -1, Varnel3Data::NoEnd},
            {1, -1, '_', -1, 0, Varnel3Data::NoEnd}, {8, -1, '_', -1, 7, Varnel3Data::NoEnd},
            {8, 4, 'E', -1, 4, Varnel3Data::Completed}, {8, 0, 'E', -1, 0, Varnel3Data::Completed},
            {8, 7, 'M', -1, 7, Varnel3Data::Aborted}, {8, 6, 'S', 3, 3, Varnel3Data::Failed},
            {6, -1, '_', 2, 2, Varnel3Data::NoEnd}, {5, -1, '_', 2, 4, Varnel3Data::NoEnd}};
        for (const auto &[count, letterAt, letter, markAt, last, end] : cases) {
            QVector<Varnel3Data> records;
            for (int i = 0; i < count; ++i)
                records += record(i, 8000 - i, 1000, i == letterAt ? letter : '_', i == markAt ? 'E' : '_');
            const LogbookFigures figures = figuresOf(records);
            QCOMPARE(figures.records, count);
            QCOMPARE(figures.end, end);
            QCOMPARE(figures.duration, qMax(0, last));
            QCOMPARE(figures.endVoltage, last < 0 ? 0 : 8000 - last);
            QCOMPARE(figures.charge, markAt >= 0 && count >= 6 ? markAt : qMax(0, count - 1)); // as compared
            QCOMPARE(figures.spread, count > 0 ? 30 : -1);
            QCOMPARE(figures.curve.isEmpty(), last < 1);
            QCOMPARE(figures.energy == 0, last < 1);
        }
    }

    // From the eighteenth record on the smoothed one; before, as it was measured.
    void resistance()
    {
        QVector<Varnel3Data> records;
        QStringList found;
        for (int i = 0; i < 24; ++i) {
            records += record(i, 8000, 1000);
            records.last().internalResistance = i == 20 ? 0 : 40 + i;
            found += QString::number(figuresOf(records).resistance);
        }
        QCOMPARE(found.join(' '),
            QString("40 41 42 43 44 45 46 47 48 49 50 51 52 53 54 55 56 57 57 57 57 59 60 60"));
    }

    // A clock that runs back gives no time, and numbers of any size no overflow.
    void hostile()
    {
        const LogbookFigures back
            = figuresOf({record(100, 10000, 1000), record(40, 10000, 1000), record(50, 10000, 1000)});
        QCOMPARE(back.duration, 0);
        QCOMPARE(back.energy, 100.0 / 3600);
        // Then the picture goes by the number of records.
        const LogbookFigures mixed = figuresOf(
            {record(100, 8000, 1), record(40, 9000, 1), record(500, 8500, 1), record(600, 8500, 1)});
        for (const auto &[at, height] :
            {std::pair(0, 0), std::pair(7, 85), std::pair(21, 255), std::pair(63, 128)})
            QCOMPARE(int(uchar(mixed.curve[at])), height);
        for (const LogbookFigures &still : {figuresOf({record(7, 8000, 1), record(7, 9000, 1)}),
                 figuresOf({record(7, 8000, 1), record(8, 9000, 1), record(8, 9000, 1)})})
            QCOMPARE(int(uchar(still.curve[21])), 85);
        constexpr int most = std::numeric_limits<int>::max();
        Varnel3Data first = record(-most, -most, most);
        Varnel3Data last = record(most, most, most);
        last.cellMin = -most;
        last.cellCount = most;
        first.internalResistance = most;
        const LogbookFigures wild = figuresOf({first, last});
        QCOMPARE(wild.duration, most);
        QCOMPARE(wild.spread, most);
        QVERIFY(std::isfinite(wild.energy));
    }
};

QTEST_MAIN(TestLogbookFigures)
#include "tst_logbookfigures.moc"
