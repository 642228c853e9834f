#include "documents/csvexport.h"
#include "series/seriesstore.h"

#include <QBuffer>
#include <QtTest>

namespace {

Varnel3Data record(const char *line)
{
    Varnel3Data data;
    data.parseLine(QLatin1String(line));
    return data;
}

QList<QByteArray> rowsOf(const SeriesStore &store)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!CsvRows(store).writeAll(buffer))
        return {};
    return buffer.data().split('\n');
}

} // namespace

class TestCsvExport : public QObject {
    Q_OBJECT

private slots:
    void columnsMatchTheHeader();
    void valuesStandUnderTheirTitles();
    void flagsAreQuoted();
    void deviceThatTakesNoMore();
};

const char plainLine[]
    = "#02C05_____0,00005,08000,01500,250,00012,00045,4000,0,4000,0,0000,0,0000,0,0000,0,0000,0,"
      "0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";
const char cellLine[]
    = "#03C05____B2,00006,12345,01500,251,00013,00045,4100,1,4120,:,4125,0,0000,0,0000,0,0000,0,"
      "0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";

void TestCsvExport::columnsMatchTheHeader()
{
    SeriesStore store;
    store.append(record(plainLine));
    store.append(record(cellLine)); // more cells than the first: the widest record decides
    const QList<QByteArray> rows = rowsOf(store);
    QCOMPARE(rows.size(), 4);
    QVERIFY(rows.last().isEmpty());
    QVERIFY(rows[0].contains("cell 3 voltage [mV]") && !rows[0].contains("cell 4"));
    for (int i = 1; i < 3; ++i)
        QCOMPARE(rows[i].count(','), rows[0].count(','));
}

void TestCsvExport::valuesStandUnderTheirTitles()
{
    SeriesStore store;
    store.append(record(plainLine));
    Varnel3Data second = record(cellLine);
    second.parseResistanceLine(QStringLiteral("!25,30,0,0,0,0,0,0,0,0,0,0,0,0,0,0"));
    store.append(second);
    const QList<QByteArray> rows = rowsOf(store);
    const QList<QByteArray> titles = rows[0].split(',');
    const auto value
        = [&](int row, const char *title) { return rows[row].split(',').at(titles.indexOf(title)); };
    QCOMPARE(value(1, "voltage [mV]"), QByteArray("8000"));
    QCOMPARE(value(1, "cell 1 balance [%]"), QByteArray());
    QCOMPARE(value(1, "cell maximum [mV]"), QByteArray());
    QCOMPARE(value(2, "cell maximum [mV]"), QByteArray("4125"));
    QCOMPARE(value(1, "cell spread [mV]"), QByteArray());
    QCOMPARE(value(2, "cell spread [mV]"), QByteArray("25"));
    QCOMPARE(value(2, "cell 2 balance [%]"), QByteArray("100"));
    QCOMPARE(value(2, "cell 1 resistance [mOhm]"), QByteArray("2.5"));
    QCOMPARE(value(2, "temperature [0.1 C]"), QByteArray("251"));
    QCOMPARE(value(2, "mode"), QByteArray("Charge"));
}

void TestCsvExport::flagsAreQuoted()
{
    SeriesStore store;
    Varnel3Data data = record(plainLine);
    data.flag1 = '"';
    data.flag2 = '\0';
    data.flag4 = char(0xb0);
    store.append(data);
    const QByteArray row = rowsOf(store).at(1);
    QVERIFY2(row.contains(",\"\"\"\",,_,\xc2\xb0,_,"), row.constData());
}

void TestCsvExport::deviceThatTakesNoMore()
{
    SeriesStore store;
    store.append(record(plainLine));
    QFile full(QStringLiteral("/dev/full"));
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        QSKIP("no /dev/full here");
    QVERIFY(!CsvRows(store).writeAll(full));
}

QTEST_APPLESS_MAIN(TestCsvExport)
#include "tst_csvexport.moc"
