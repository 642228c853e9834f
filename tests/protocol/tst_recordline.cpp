#include "protocol/recordline.h"

#include "protocol/fixedlayout.h"
#include "data/varnel3data.h"

#include "support/columns.h"
#include "support/records.h"
#include "support/seed.h"

#include <QTest>

namespace {

Varnel3Data pack()
{
    Varnel3Data record;
    record.mode = Varnel3Data::Charge;
    record.cellType = 5;
    record.cellCount = 6;
    record.setTime(123);
    record.voltage = 25200;
    record.current = 2000;
    record.temperature = 25;
    record.energy = 150;
    record.internalResistance = 45;
    for (int i = 0; i < 6; ++i)
        record.cells[i].voltage = 4200;
    return record;
}

QByteArray written(const Varnel3Data &record)
{
    char line[maxRecordLineLength];
    return QByteArray(line, int(writeRecordLine(line, record) - line));
}

} // namespace

/// The record line: its exact bytes, and what comes back from it.
class TestRecordLine : public QObject {
    Q_OBJECT

private slots:
    void sixCells()
    {
        const QString expected = QLatin1String("#06C05_____0,00123,25200,02000,025,00150,00045")
            + QStringLiteral(",4200,0").repeated(6) + QStringLiteral(",0000,0").repeated(10);
        QCOMPARE(pack().toRecordLine(), expected);

        Varnel3Data record = pack();
        record.cells[6].voltage = 17; // the one behind the last cell is written, the next is not
        record.cells[7].voltage = 18;
        record.cells[0].balance = 100;
        record.cells[1].balance = 99;
        const QString line = record.toRecordLine();
        QVERIFY2(line.contains(QLatin1String(",00045,4200,:,4200,9,4200,0")), qPrintable(line));
        QVERIFY2(line.contains(QLatin1String(",0017,0,0000,0")), qPrintable(line));
    }

    void heads_data()
    {
        columns<int, int, int, int, QString>({"mode", "chemistry", "cells", "current", "head"});
        QTest::newRow("discharge") << 1 << 0 << 1 << 250 << "#01D00_____1";
        QTest::newRow("balancing") << 2 << 12 << 16 << 1000 << "#16B12_____4";
        QTest::newRow("format, odd current") << 3 << 5 << 99 << 300 << "#99F05_____0";
        QTest::newRow("less current than the first digit") << 0 << 10 << 6 << 249 << "#06C10_____0";
        QTest::newRow("more current than a digit says") << 3 << 5 << 6 << 1250 << "#06F05_____0";
        QTest::newRow("test has no letter") << 4 << 5 << 6 << 750 << "#06 05_____3";
        QTest::newRow("no mode, no chemistry") << 5 << 13 << 0 << 500 << "#00  _____2";
        QTest::newRow("hostile") << -1 << -1 << -1 << -250 << "#-1  _____0";
        QTest::newRow("negative count") << 0 << 5 << -9 << 0 << "#-9C05_____0";
        QTest::newRow("wider negative count") << 0 << 5 << -10 << 0 << "#-10C05_____0";
        QTest::newRow("wide count") << 0 << 5 << 100 << 0 << "#100C05_____0";
    }

    void heads()
    {
        Varnel3Data record = pack();
        QFETCH(int, mode);
        QFETCH(int, chemistry);
        QFETCH(int, cells);
        QFETCH(int, current);
        record.mode = mode;
        record.cellType = chemistry;
        record.cellCount = cells;
        record.ballansingCurrent = current;
        QTEST(record.toRecordLine().section(QLatin1Char(','), 0, 0), "head");
        QCOMPARE(Varnel3Data().parseLine(record.toRecordLine()), isRecordLineReadable(record));
    }

    // Every number against Qt's own formatting, which the line is defined by.
    void numbersAsArg()
    {
        QVector<int> values = {0, INT_MAX, INT_MIN, -1, -9999};
        for (int power = 1; power <= 1000000000 / 10; power *= 10)
            values << power - 1 << power << power + 1 << 10 - power << -power << 7 * power;
        for (const int value : qAsConst(values)) {
            Varnel3Data record;
            record.time = record.voltage = record.current = record.temperature = record.energy = value;
            record.internalResistance = record.cells[0].voltage = value;
            const auto filled
                = [value](int width) { return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0')); };
            const QStringList fields = record.toRecordLine().split(QLatin1Char(','));
            QCOMPARE(fields.mid(1, 7),
                QStringList({filled(5), filled(5), filled(5), filled(3), filled(5), filled(5), filled(4)}));
        }
    }

    void hostileNumbersFit()
    {
        Varnel3Data record;
        record.cellCount = INT_MAX;
        record.mode = INT_MIN;
        record.time = record.voltage = record.current = record.temperature = record.energy = INT_MIN;
        record.internalResistance = record.ballansingCurrent = INT_MIN;
        for (CellData &cell : record.cells)
            cell = {INT_MIN, INT_MIN, INT_MIN, 0.0};
        QVERIFY(written(record).size() + 2 <= maxRecordLineLength);
        QCOMPARE(written(record).count(','), 38);
        record.cells[0].balance = 2080; // the last that a character says, and the first that none does
        record.cells[1].balance = 2070;
        QVERIFY2(written(record).contains(",?,") && written(record).contains(",\xff,"), written(record));
        record.cellCount = INT_MIN;
        QVERIFY(written(record).endsWith(QByteArray(",0000,0").repeated(16)));
    }

    void comesBack()
    {
        Varnel3Data record = pack();
        record.energy = 12345;
        record.flag1 = '\xe9';
        record.flag2 = '1'; // in tens
        record.flag5 = '%';
        QCOMPARE(written(record).split(',').at(5), QByteArray("01234"));
        Varnel3Data back;
        QVERIFY(back.parseLine(record.toRecordLine()));
        QCOMPARE(back.energy, 12340);
        QVERIFY(back.flag1 == '\xe9' && back.flag2 == '1' && back.flag5 == '%');
    }

    // By both roads, of which the quick one takes what is of the usual widths.
    void randomRecordsComeBack()
    {
        RandomRecords random(randomSeed());
        for (int round = 0; round < 20000; ++round) {
            const bool usual = round % 2 == 0;
            const Varnel3Data record = random.next(usual);
            const QByteArray line = written(record);
            Varnel3Data back;
            Varnel3Data textBack;
            Varnel3Data quickBack;
            QVERIFY2(isRecordLineReadable(record), line);
            QVERIFY2(back.parseLine(QLatin1String(line.constData(), line.size())), line);
            QVERIFY2(textBack.parseLine(record.toRecordLine()), line);
            const bool quick
                = parseFixedLayout(quickBack, {reinterpret_cast<const uchar *>(line.data()), line.size()});
            QVERIFY2(quick || !usual, line);
            QVERIFY2(fieldsOf(back) == fieldsOf(record), line);
            QVERIFY2(fieldsOf(textBack) == fieldsOf(record), line);
            QVERIFY2(written(back) == line, line);
        }
    }
};

QTEST_GUILESS_MAIN(TestRecordLine)
#include "tst_recordline.moc"
