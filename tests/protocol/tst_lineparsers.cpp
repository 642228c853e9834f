#include "data/varnel3data.h"

#include "support/columns.h"
#include "support/records.h"

#include <QTest>

namespace {

const char plainFigures[] = "00123,25200,02000,025,01234,00045";
const char twoLine[] = "#c0605 00123,25200+02000,025,01234";
const char plusLine[] = "#D0606 00123,25200,-2000,025,01234";

// Cell i at 4100 + i mV with (i % 11) * 10 per cent of load.
QString chargerLine(const char *head, const char *figures = plainFigures)
{
    QString line = QLatin1String(head) + QLatin1Char(',') + QLatin1String(figures);
    for (int i = 0; i < Varnel3Data::maxCells; ++i)
        line += QStringLiteral(",%1,").arg(4100 + i) + QChar('0' + i % 11);
    return line;
}

// Cell i > 0 at 4000 + i mV with (i % 10) * 10 per cent of load.
QString balancerLine(const char *head)
{
    QString line = QLatin1String(head) + QStringLiteral(",1");
    for (int i = 1; i < 12; ++i)
        line += QStringLiteral(",%1,%2").arg(4000 + i).arg(i % 10);
    return line;
}

QString withField(const QString &line, int field, const QString &value)
{
    QStringList fields = line.split(QLatin1Char(','));
    fields[field] = value;
    return fields.join(QLatin1Char(','));
}

// "Varnel 3 Charge 6xLiPo"
QString headOf(const Varnel3Data &record)
{
    return QStringLiteral("%1 %2 %3x%4")
        .arg(Varnel3Data::deviceName(record.device), Varnel3Data::modeName(record.mode))
        .arg(record.cellCount)
        .arg(Varnel3Data::cellTypeName(record.cellType));
}

QString figuresOf(const Varnel3Data &record)
{
    return QStringLiteral("B=%1 t=%2 U=%3 I=%4 T=%5 E=%6 R=%7")
        .arg(record.ballansingCurrent)
        .arg(record.time)
        .arg(record.voltage)
        .arg(record.current)
        .arg(record.temperature)
        .arg(record.energy)
        .arg(record.internalResistance);
}

// Takes the line by both entries, which must do the same with it and leave the same behind.
bool parseBoth(const QByteArray &line, Varnel3Data *record)
{
    const QLatin1String bytes(line.constData(), line.size());
    Varnel3Data other = *record;
    const bool taken = record->parseLine(bytes) || record->parseResistanceLine(bytes);
    const QString text = bytes;
    const bool same = (other.parseLine(text) || other.parseResistanceLine(text)) == taken
        && fieldsOf(other) == fieldsOf(*record);
    if (!same)
        QTest::qFail(line.constData(), __FILE__, __LINE__);
    return taken;
}

} // namespace

/// Lines of all dialects in, records out; and what is refused, with the fields that were written by then.
class TestLineParsers : public QObject {
    Q_OBJECT

private slots:
    void taken_data();
    void taken();
    void refused_data();
    void refused();
    void flagsTravelUnchanged();
    void cells_data();
    void cells();
    void balancerSumsItsCells();
    void chemistryCodes_data();
    void chemistryCodes();
    void resistanceLine_data();
    void resistanceLine();
    void bytesAndTextAgree();
};

void TestLineParsers::taken_data()
{
    columns<QString, QString, QString>({"line", "head", "figures"});
    const auto row = [](const char *name, const QString &line, const char *head, const char *figures) {
        QTest::newRow(name) << line << QString::fromLatin1(head) << QString::fromLatin1(figures);
    };
    row("charger", chargerLine("#06C05_____2"), "Varnel 3 Charge 6xLiPo",
        "B=500 t=123 U=25200 I=2000 T=25 E=1234 R=45");
    row("charger, blanks and signs", chargerLine("# 6D 0_____0", " 3661, +5 ,-20,-05,\t7,0"),
        "Varnel 3 Discharge 6xNiCd", "B=0 t=3661 U=5 I=-20 T=-5 E=7 R=0");
    row("charger, long time", chargerLine("#06T12_____9", "100000,1,2,3,4,5"), "Varnel 3 Test 6xLTO",
        "B=2250 t=100000 U=1 I=2 T=3 E=4 R=5");
    row("charger, tens", chargerLine("#06B05_1___0"), "Varnel 3 Balancing 6xLiPo",
        "B=0 t=123 U=25200 I=2000 T=25 E=12340 R=45");
    row("charger, tens beyond 32 bits", chargerLine("#06F05_1___0", "1,2,3,4,2000000000,6"),
        "Varnel 3 Format 6xLiPo", "B=0 t=1 U=2 I=3 T=4 E=2147483647 R=6");
    row("charger, tens below 32 bits", chargerLine("#06F05_1___0", "1,2,3,4,-2000000000,6"),
        "Varnel 3 Format 6xLiPo", "B=0 t=1 U=2 I=3 T=4 E=-2147483648 R=6");
    row("two", twoLine, "Varnel 2 Charge 6xLiIo", "B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("two, letters up", "#C0601 00001,00001+00002,3,4", "Varnel 2 Charge 6xNiCd",
        "B=0 t=1 U=1 I=2 T=3 E=4 R=0");
    row("two, down", "#d0601 00001,00001+00002,3,4", "Varnel 2 Discharge 6xNiCd",
        "B=0 t=1 U=1 I=2 T=3 E=4 R=0");
    row("two, forming up", "#F0601x00001,00001+00002,3,4", "Varnel 2 Charge 6xNiCd",
        "B=0 t=1 U=1 I=2 T=3 E=4 R=0");
    row("two, forming down", "#f0612x12345,00001-000029,3,4", "Varnel 2 Discharge 6xLiHV",
        "B=0 t=12345 U=1 I=2 T=3 E=4 R=0");
    row("two plus", plusLine, "Varnel 2+ Discharge 6xLiPo", "B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("two plus, forming up", "#F0606 00123,25200,+20009,025,01234", "Varnel 2+ Charge 6xLiPo",
        "B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("two plus, forming down", "#f0606 00123,25200,-2000,025,01234", "Varnel 2+ Discharge 6xLiPo",
        "B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("balancer", balancerLine("#t0206D4000"), "Tandor Balancing 2xLiPo",
        "B=750 t=0 U=12003 I=0 T=0 E=0 R=0");
    row("balancer, least current", balancerLine("#t0205B4000"), "Tandor Balancing 2xLiIo",
        "B=250 t=0 U=12003 I=0 T=0 E=0 R=0");
    row("balancer, no current", balancerLine("#t0008x4000"), "Tandor Balancing 0xLiHV",
        "B=0 t=0 U=4000 I=0 T=0 E=0 R=0");
}

void TestLineParsers::taken()
{
    QFETCH(QString, line);
    Varnel3Data record;
    QVERIFY(record.parseLine(line));
    QTEST(headOf(record), "head");
    QTEST(figuresOf(record), "figures");
    Varnel3Data split;
    split.setTime(record.time);
    QCOMPARE(record.hour * 10000 + record.minute * 100 + record.second,
        split.hour * 10000 + split.minute * 100 + split.second);
}

// The record says charge and seven LiFe cells before, of no device.
void TestLineParsers::refused_data()
{
    columns<QString, QString>({"line", "left"});
    const auto row = [](const char *name, const QString &line, const char *left) {
        QTest::newRow(name) << line << QString::fromLatin1(left);
    };
    const QString good = chargerLine("#06D05_____0");
    const auto withHead = [&good](const char *head) { return withField(good, 0, QLatin1String(head)); };
    row("empty", QString(), "None Charge 7xLiFe");
    row("no hash", good.mid(1), "None Charge 7xLiFe");
    row("blank in front", QLatin1Char(' ') + good, "None Charge 7xLiFe");
    row("38 fields", good.left(good.lastIndexOf(QLatin1Char(','))), "None Charge 7xLiFe");
    row("40 fields", good + QLatin1Char(','), "None Charge 7xLiFe");
    row("400 fields", good + QString(361, QLatin1Char(',')), "None Charge 7xLiFe");
    row("short head", withHead("#06D05_____"), "Varnel 3 Charge 7xLiFe");
    row("long head", withHead("#06D05_____00"), "Varnel 3 Charge 7xLiFe");
    row("cell count", withHead("#xxD05_____0"), "Varnel 3 Charge 7xLiFe");
    row("mode letter", withHead("#06X05_____0"), "Varnel 3 None 6xLiFe");
    row("mode beyond Latin-1", withHead("#06D05_____0").replace(3, 1, QChar(0x443)), "Varnel 3 None 6xLiFe");
    row("chemistry", withHead("#06D13_____0"), "Varnel 3 Discharge 6xNone");
    row("chemistry below", withHead("#06D-1_____0"), "Varnel 3 Discharge 6xNone");
    row("chemistry no number", withHead("#06D x_____0"), "Varnel 3 Discharge 6xLiFe");
    row("balancing current", withHead("#06D05______"), "Varnel 3 Discharge 6xLiPo");
    row("byte-order mark", withField(good, 1, QChar(0xfeff) + QStringLiteral("1")),
        "Varnel 3 Discharge 6xLiPo");
    for (int field = 1; field <= 7 + 2 * 6; field += field < 7 ? 1 : 2) {
        for (const char *value : {"", "3000000000"})
            QTest::addRow("field %d: %s", field, value) << withField(good, field, QLatin1String(value))
                                                        << QStringLiteral("Varnel 3 Discharge 6xLiPo");
    }
    row("two: short head", "#c060500123,25200+02000,025,01234", "Varnel 2 Charge 7xLiFe");
    row("two: mode letter", "#b0605 00123,25200+02000,025,01234", "Varnel 2 None 7xLiFe");
    row("two: count", "#dx605 00123,25200+02000,025,01234", "Varnel 2 Discharge 7xLiFe");
    row("two: chemistry 0", "#d0600 00123,25200+02000,025,01234", "Varnel 2 Discharge 6xNone");
    row("two: chemistry 13", "#d0613 00123,25200+02000,025,01234", "Varnel 2 Discharge 6xNone");
    row("two: time", "#d0605 0012x,25200+02000,025,01234", "Varnel 2 Discharge 6xLiIo");
    row("two: voltage", "#d0605 00123,2520x+02000,025,01234", "Varnel 2 Discharge 6xLiIo");
    row("two: temperature", "#d0605 00123,25200+02000,,01234", "Varnel 2 Discharge 6xLiIo");
    row("two: forming, cut short", "#f0605 00123,2520,025,01234", "Varnel 2 Discharge 6xLiIo");
    row("two: last field", "#d0605 00123,25200+02000,025,", "Varnel 2 Discharge 6xLiIo");
    row("two plus: voltage", "#f0605 00123,x,+2000,025,01234", "Varnel 2+ Charge 6xLiIo");
    row("two plus: only a sign", "#f0605 00123,25200,+,025,01234", "Varnel 2+ Charge 6xLiIo");
    row("two plus: temperature", "#f0605 00123,25200,+2000,x,01234", "Varnel 2+ Charge 6xLiIo");
    row("two plus: last field", "#f0605 00123,25200,+2000,025,x", "Varnel 2+ Charge 6xLiIo");
    row("balancer: long head", balancerLine("#t0206D04000"), "Tandor Charge 7xLiFe");
    row("balancer: count", balancerLine("#tx206D4000"), "Tandor Balancing 7xLiFe");
    row("balancer: chemistry", balancerLine("#t0209D4000"), "Tandor Balancing 2xNone");
    row("balancer: first cell", balancerLine("#t0206D4o00"), "Tandor Balancing 2xLiPo");
    row("balancer: cell", balancerLine("#t0206D4000").replace("4002", "4oo2"), "Tandor Balancing 2xLiPo");
}

void TestLineParsers::refused()
{
    QFETCH(QString, line);
    Varnel3Data record;
    record.mode = Varnel3Data::Charge;
    record.cellCount = record.cellType = 7;
    QVERIFY(!record.parseLine(line));
    QTEST(headOf(record), "left");
    QCOMPARE(record.flag5, record.device == Varnel3Data::Tandor ? 'B' : '_');
}

void TestLineParsers::flagsTravelUnchanged()
{
    Varnel3Data record;
    QString line = chargerLine("#06C05%1\"\xe9 0");
    QVERIFY(record.parseLine(line));
    const std::string flags = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
    QCOMPARE(flags, std::string("%1\"\xe9 "));
    line[6] = QChar(0x141);
    line[7] = QChar(0xff);
    QVERIFY(record.parseLine(line));
    QCOMPARE(record.flag1, '\0');
    QCOMPARE(record.flag2, '\xff');
}

void TestLineParsers::cells_data()
{
    // read: cells that the line overwrites; statistics: highest, lowest, mean, balance
    columns<QString, QString, int, QString>({"count", "flag5", "read", "statistics"});
    QTest::newRow("-5") << "-5"
                        << "B" << 0 << "900 900 900 20";
    QTest::newRow("0") << "00"
                       << "B" << 1 << "4100 4100 4100 0";
    QTest::newRow("1") << "01"
                       << "B" << 2 << "4100 4100 4100 0";
    QTest::newRow("2") << "02"
                       << "B" << 3 << "4101 4100 4100 10";
    QTest::newRow("6") << "06"
                       << "B" << 7 << "4105 4100 4102 50";
    QTest::newRow("15") << "15"
                        << "B" << 16 << "4114 4100 4107 100";
    QTest::newRow("16") << "16"
                        << "B" << 16 << "4115 4100 4107 100";
    QTest::newRow("99: sixteen are summed") << "99"
                                            << "B" << 16 << "4115 4100 663 100";
    QTest::newRow("no balancing data") << "06"
                                       << "_" << 7 << "0 0 0 0";
}

void TestLineParsers::cells()
{
    QFETCH(QString, count);
    QFETCH(QString, flag5);
    QFETCH(int, read);
    Varnel3Data record;
    record.cellMax = record.cellMin = record.cellAverage = record.balanceMax = 1;
    for (CellData &cell : record.cells)
        cell = {900, 20, 77, 0.5};
    QString line = chargerLine("#06C05____B0").replace(1, 2, count).replace(10, 1, flag5);
    for (int i = read; i < Varnel3Data::maxCells; ++i)
        line = withField(line, 7 + 2 * i, QStringLiteral("none")); // must not be looked at
    line = withField(line, 8, QString()); // no balance at all: 0, and no fault
    QVERIFY(record.parseLine(line));
    QCOMPARE(record.cellCount, count.toInt());
    for (int i = 0; i < Varnel3Data::maxCells; ++i) {
        QCOMPARE(record.cells[i].voltage, i < read ? 4100 + i : 900);
        QCOMPARE(record.cells[i].balance, i < read ? i % 11 * 10 : 20);
        QCOMPARE(record.cells[i].balanceCharge, 77); // not the parser's
    }
    const QString statistics = QStringLiteral("%1 %2 %3 %4");
    QTEST(statistics.arg(record.cellMax).arg(record.cellMin).arg(record.cellAverage).arg(record.balanceMax),
        "statistics");
    const QString falling = withField(withField(line, 9, QStringLiteral("4099")), 8, QStringLiteral(":"));
    if (read > 2 && flag5 == QLatin1String("B")) {
        QVERIFY(record.parseLine(falling)); // the first is not always the lowest
        QCOMPARE(record.cellMin, 4099);
        QCOMPARE(record.balanceMax, 100);
    }
}

void TestLineParsers::balancerSumsItsCells()
{
    Varnel3Data record;
    record.time = 55;
    QVERIFY(record.parseLine(balancerLine("#t0305C3900")));
    QCOMPARE(record.voltage, 3900 + 4001 + 4002 + 4003); // one more than the count
    QCOMPARE(record.cells[0].balance, 10);
    QCOMPARE(record.cells[3].balance, 30);
    QCOMPARE(record.cells[4].voltage, 0);
    QCOMPARE(record.cellMax, 4002);
    QCOMPARE(record.cellAverage, (3900 + 4001 + 4002) / 3);
    QCOMPARE(record.ballansingCurrent, 500);
    QCOMPARE(record.time, 55);
    QVERIFY(record.parseLine(balancerLine("#t9905C3900")));
    QCOMPARE(record.cells[11].voltage, 4011);
    QCOMPARE(record.cells[12].voltage, 0);
    QVERIFY(record.parseLine(balancerLine("#t0205C9999").replace(",4001,", ",2147483647,")));
    QCOMPARE(record.voltage, INT_MAX);
}

void TestLineParsers::chemistryCodes_data()
{
    // line: %1 is the code; names: of the codes 0 to 13, "-" where refused
    columns<QString, QString>({"line", "names"});
    QTest::newRow("charger") << chargerLine("#06C%1_____0")
                             << "NiCd NiMh Pb RAM LiIo LiPo LiTa LiFe LiS NiZn LiXX LiHV LTO -";
    QTest::newRow("two") << "#c06%1 00123,25200+02000,025,01234"
                         << "- NiCd NiMh Pb RAM LiIo LiPo LiTa LiFe LiS NiZn LiXX LiHV -";
    QTest::newRow("two plus") << "#c06%1 00123,25200,+2000,025,01234"
                              << "- NiCd NiMh Pb RAM LiIo LiPo LiTa LiFe LiS NiZn LiXX LiHV -";
    QTest::newRow("balancer") << balancerLine("#t02%1C4000") << "- - - - - LiIo LiPo LiFe LiHV - - - - -";
}

void TestLineParsers::chemistryCodes()
{
    QFETCH(QString, line);
    QStringList names;
    for (int code = 0; code <= 13; ++code) {
        Varnel3Data record;
        const bool taken = record.parseLine(line.arg(code, 2, 10, QLatin1Char('0')));
        names += taken ? Varnel3Data::cellTypeName(record.cellType) : QStringLiteral("-");
    }
    QTEST(names.join(QLatin1Char(' ')), "names");
}

void TestLineParsers::resistanceLine_data()
{
    // second: cell 1, 9.9 before
    columns<QString, bool, double, double>({"line", "taken", "second", "sum"});
    const QString tail = QStringLiteral(",3").repeated(13);
    QTest::newRow("sixteen") << "!12,25,3" + tail << true << 2.5 << 1.2 + 2.5 + 14 * 0.3;
    QTest::newRow("one is none") << "!12,abc,3" + tail << true << 9.9 << 1.2 + 14 * 0.3;
    QTest::newRow("an empty one") << "!12,,3" + tail + "\r\n" << true << 9.9 << 1.2 + 14 * 0.3;
    QTest::newRow("fifteen") << "!12,25" + tail << false << 9.9 << -1.0;
    QTest::newRow("seventeen") << "!12,25,3,3" + tail << false << 9.9 << -1.0;
    QTest::newRow("blank in front") << " !12,25,3" + tail << false << 9.9 << -1.0;
    QTest::newRow("only the mark") << "!" << false << 9.9 << -1.0;
    QTest::newRow("empty") << "" << false << 9.9 << -1.0;
}

void TestLineParsers::resistanceLine()
{
    QFETCH(QString, line);
    QFETCH(bool, taken);
    QFETCH(double, sum);
    Varnel3Data record;
    record.cells[1].resistance = 9.9;
    record.resistanceSum = -1.0;
    QCOMPARE(record.parseResistanceLine(line), taken);
    QCOMPARE(record.resistanceValid, taken);
    QTEST(record.cells[1].resistance, "second");
    QVERIFY(qAbs(record.resistanceSum - sum) < 1e-9);
}

// Each single byte of good lines lost, doubled, or another: the quick way of what is of the usual widths must
// take nothing else, and leave what it does not take untouched.
void TestLineParsers::bytesAndTextAgree()
{
    const QByteArrayList lines = {chargerLine("#06C05_1__B2").toLatin1(),
        chargerLine("#16C05_1__B2").toLatin1(),
        chargerLine("#06D05_1__B2", "262143,25200,02000,025,01234,00045").toLatin1(),
        chargerLine("#06C05_1__B2", "4262143000,25200,02000,025,01234,00045").toLatin1(),
        "#03F05____B0,00001,00002,00003,004,00005,00006,4000,:,4001,1" + QByteArray(",0000,0").repeated(14),
        "#00T12____B0,000000001,00002,00003,004,00005,00006" + QByteArray(",0000,0").repeated(16), twoLine,
        plusLine, balancerLine("#t0306D4000").toLatin1(), "!1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"};
    const QByteArray letters("019,+- \t\r/:;#!BCF\xa0\xe9\0", 20);
    int taken = 0;
    for (const QByteArray &line : lines) {
        for (int at = 0; at < line.size() && !QTest::currentTestFailed(); ++at) {
            const auto take = [&](const QByteArray &damaged) {
                Varnel3Data record;
                record.cells[3].voltage = record.cells[9].balance = -7; // shows what was not written
                taken += parseBoth(damaged, &record);
            };
            for (const char letter : letters)
                take(QByteArray(line).replace(at, 1, &letter, 1));
            take(QByteArray(line).remove(at, 1));
            take(QByteArray(line).insert(at, line[at]));
            take(line.left(at));
        }
    }
    QVERIFY(taken > 5000); // the damage does not spoil everything
}

QTEST_GUILESS_MAIN(TestLineParsers)
#include "tst_lineparsers.moc"
