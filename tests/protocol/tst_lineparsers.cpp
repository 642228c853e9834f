#include "data/varnel3data.h"

#include "protocol/recordflags.h"
#include "support/columns.h"

#include <QRandomGenerator>
#include <QTest>

#include <cstring>

namespace {

// A six-cell LiPo pack; cell i at 4100 + i mV with (i % 11) * 10 per cent of load.
QString chargerLine(const char *head, const char *figures)
{
    QString line = QLatin1String(head) + QLatin1Char(',') + QLatin1String(figures);
    for (int i = 0; i < Varnel3Data::maxCells; ++i)
        line += QStringLiteral(",%1,").arg(4100 + i) + QChar('0' + i % 11);
    return line;
}

const char plainFigures[] = "00123,25200,02000,025,01234,00045";

QString withField(const QString &line, int field, const QString &value)
{
    QStringList fields = line.split(QLatin1Char(','));
    fields[field] = value;
    return fields.join(QLatin1Char(','));
}

QString balancerLine(const char *head)
{
    QString line = QLatin1String(head) + QStringLiteral(",1");
    for (int i = 1; i < 12; ++i)
        line += QStringLiteral(",%1,%2").arg(4000 + i).arg(i % 10);
    return line;
}

QLatin1String latin1(const QByteArray &bytes)
{
    return QLatin1String(bytes.constData(), bytes.size());
}

bool sameRecord(const Varnel3Data &a, const Varnel3Data &b)
{
    return a.toString() == b.toString() && a.cellMax == b.cellMax && a.cellMin == b.cellMin
        && a.cellAverage == b.cellAverage && a.balanceMax == b.balanceMax
        && a.resistanceSum == b.resistanceSum
        && a.resistanceValid == b.resistanceValid
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): equal to the bit is what is meant
        && std::memcmp(a.cells, b.cells, sizeof a.cells) == 0;
}

} // namespace

/// Lines of all dialects in, records out; and what is refused, with the fields that were written by then.
class TestLineParsers : public QObject {
    Q_OBJECT

private slots:
    void dialects_data();
    void dialects();
    void refused_data();
    void refused();
    void energyCountsInTens_data();
    void energyCountsInTens();
    void flagsTravelUnchanged();
    void cellsAreReadInclusively_data();
    void cellsAreReadInclusively();
    void statistics_data();
    void statistics();
    void balancerSumsItsCells();
    void chemistryCodes_data();
    void chemistryCodes();
    void resistanceLine_data();
    void resistanceLine();
    void bytesAndTextAgree();
};

void TestLineParsers::dialects_data()
{
    columns<QString, QString>({"line", "record"});
    const auto row = [](const char *name, const QString &line, const char *record) {
        QTest::newRow(name) << line << QString::fromLatin1(record);
    };
    row("charger", chargerLine("#06C05_____2", plainFigures),
        "Varnel 3 Charge LiPo cells=6 balancing=500 t=123 U=25200 I=2000 T=25 E=1234 R=45");
    row("charger, blanks and signs", chargerLine("# 6D 0_____0", " 3661, +5 ,-20,-05,\t7,0"),
        "Varnel 3 Discharge NiCd cells=6 balancing=0 t=3661 U=5 I=-20 T=-5 E=7 R=0");
    row("charger, long time", chargerLine("#06T12_____9", "100000,1,2,3,4,5"),
        "Varnel 3 Test LTO cells=6 balancing=2250 t=100000 U=1 I=2 T=3 E=4 R=5");
    row("two", QStringLiteral("#c0605 00123,25200+02000,025,01234"),
        "Varnel 2 Charge LiIo cells=6 balancing=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("two, forming up", QStringLiteral("#F0601x00001,00001+00002,3,4"),
        "Varnel 2 Charge NiCd cells=6 balancing=0 t=1 U=1 I=2 T=3 E=4 R=0");
    row("two, forming down", QStringLiteral("#f0612x00001,00001-00002,3,4"),
        "Varnel 2 Discharge LiHV cells=6 balancing=0 t=1 U=1 I=2 T=3 E=4 R=0");
    row("two plus", QStringLiteral("#D0606 00123,25200,-2000,025,01234"),
        "Varnel 2+ Discharge LiPo cells=6 balancing=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("two plus, forming up", QStringLiteral("#F0606 00123,25200,+20009,025,01234"),
        "Varnel 2+ Charge LiPo cells=6 balancing=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
    row("balancer", balancerLine("#t0206D4000"),
        "Tandor Balancing LiPo cells=2 balancing=750 t=0 U=12003 I=0 T=0 E=0 R=0");
    row("balancer, no current", balancerLine("#t0208x4000"),
        "Tandor Balancing LiHV cells=2 balancing=0 t=0 U=12003 I=0 T=0 E=0 R=0");
}

void TestLineParsers::dialects()
{
    QFETCH(QString, line);
    Varnel3Data r;
    QVERIFY(r.parseLine(line));
    const QString figures = QStringLiteral("cells=%1 balancing=%2 t=%3 U=%4 I=%5 T=%6 E=%7 R=%8");
    QTEST(Varnel3Data::deviceName(r.device) + ' ' + Varnel3Data::modeName(r.mode) + ' '
            + Varnel3Data::cellTypeName(r.cellType) + ' '
            + figures.arg(r.cellCount)
                  .arg(r.ballansingCurrent)
                  .arg(r.time)
                  .arg(r.voltage)
                  .arg(r.current)
                  .arg(r.temperature)
                  .arg(r.energy)
                  .arg(r.internalResistance),
        "record");
}

void TestLineParsers::refused_data()
{
    // left: device, mode, cell count and chemistry of the record then
    columns<QString, QVector<int>>({"line", "left"});
    const auto row = [](const char *name, const QString &line, const QVector<int> &left) {
        QTest::newRow(name) << line << left;
    };
    const QString good = chargerLine("#06D05_____0", plainFigures);
    const auto withHead = [&good](const char *head) { return withField(good, 0, QLatin1String(head)); };
    constexpr int none = Varnel3Data::NoMode;
    constexpr int unset = 7; // the record holds 7 cells and chemistry 7 before
    const QVector<int> untouched{4, 0, unset, unset};
    row("empty", QString(), untouched);
    row("no hash", good.mid(1), untouched);
    row("blank in front", QLatin1Char(' ') + good, untouched);
    row("38 fields", good.left(good.lastIndexOf(QLatin1Char(','))), untouched);
    row("40 fields", good + QLatin1Char(','), untouched);
    row("400 fields", good + QString(361, QLatin1Char(',')), untouched);
    row("short head", withHead("#06D05_____"), {0, 0, unset, unset});
    row("cell count", withHead("#xxD05_____0"), {0, 0, unset, unset});
    row("mode letter", withHead("#06X05_____0"), {0, none, 6, unset});
    row("chemistry", withHead("#06D13_____0"), {0, 1, 6, 13});
    row("chemistry no number", withHead("#06D x_____0"), {0, 1, 6, unset});
    row("balancing current", withHead("#06D05______"), {0, 1, 6, 5});
    row("byte-order mark", withField(good, 1, QString(QChar(0xfeff)) + QLatin1Char('1')), {0, 1, 6, 5});
    for (int field = 1; field <= 7 + 2 * 6; field = field < 7 ? field + 1 : field + 2) {
        for (const char *value : {"", "3000000000"})
            QTest::addRow("field %d: %s", field, value)
                << withField(good, field, QLatin1String(value)) << QVector<int>{0, 1, 6, 5};
    }
    row("two: short head", "#c060500123,25200+02000,025,01234", {2, 0, unset, unset});
    row("two: mode letter", "#b0605 00123,25200+02000,025,01234", {2, none, unset, unset});
    row("two: chemistry 0", "#d0600 00123,25200+02000,025,01234", {2, 1, 6, 13});
    row("two: chemistry 13", "#d0613 00123,25200+02000,025,01234", {2, 1, 6, 13});
    row("two: forming, cut short", "#f0605 00123,2520,025,01234", {2, 1, 6, 4});
    row("two: last field", "#d0605 00123,25200+02000,025,", {2, 1, 6, 4});
    row("two plus: only a sign", "#f0605 00123,25200,+,025,01234", {1, 0, 6, 4});
    row("balancer: long head", balancerLine("#t0206D04000"), {3, 0, unset, unset});
    row("balancer: chemistry", balancerLine("#t0209D4000"), {3, 2, 2, 13});
    row("balancer: cell", balancerLine("#t0206D4000").replace(QLatin1String("4002"), QLatin1String("4oo2")),
        {3, 2, 2, 5});
}

void TestLineParsers::refused()
{
    QFETCH(QString, line);
    Varnel3Data record;
    record.mode = Varnel3Data::Charge;
    record.cellCount = record.cellType = 7;
    QVERIFY(!record.parseLine(line));
    QTEST((QVector<int>{record.device, record.mode, record.cellCount, record.cellType}), "left");
    QCOMPARE(record.flag5, record.device == Varnel3Data::Tandor ? 'B' : '_');
}

void TestLineParsers::energyCountsInTens_data()
{
    columns<QString, char, int>({"field", "flag2", "energy"});
    QTest::newRow("plain") << "01234" << '_' << 1234;
    QTest::newRow("tens") << "01234" << '1' << 12340;
    QTest::newRow("beyond 32 bits") << "2000000000" << '1' << INT_MAX;
    QTest::newRow("beyond 32 bits below") << "-2000000000" << '1' << INT_MIN;
}

void TestLineParsers::energyCountsInTens()
{
    QFETCH(QString, field);
    QFETCH(char, flag2);
    QString line = withField(chargerLine("#06C05_____0", plainFigures), 5, field);
    line[7] = QLatin1Char(flag2);
    Varnel3Data record;
    QVERIFY(record.parseLine(line));
    QTEST(record.energy, "energy");
}

void TestLineParsers::flagsTravelUnchanged()
{
    Varnel3Data record;
    QString line = chargerLine("#06C05%1\"\xe9 0", plainFigures);
    QVERIFY(record.parseLine(line));
    QCOMPARE(flagsOf(record), QByteArrayLiteral("%1\"\xe9 "));
    line[6] = QChar(0x141);
    QVERIFY(record.parseLine(line));
    QCOMPARE(record.flag1, '\0');
}

void TestLineParsers::cellsAreReadInclusively_data()
{
    // read: cells that the line overwrites
    columns<QString, int>({"count", "read"});
    QTest::newRow("-5") << "-5" << 0;
    QTest::newRow("0") << "00" << 1;
    QTest::newRow("6") << "06" << 7;
    QTest::newRow("15") << "15" << 16;
    QTest::newRow("16") << "16" << 16;
    QTest::newRow("99") << "99" << 16;
}

void TestLineParsers::cellsAreReadInclusively()
{
    QFETCH(QString, count);
    QFETCH(int, read);
    Varnel3Data record;
    for (CellData &cell : record.cells)
        cell = {1, 1, 77, 0.5};
    QString line = chargerLine("#06C05____B0", plainFigures).replace(1, 2, count);
    for (int i = read; i < Varnel3Data::maxCells; ++i)
        line = withField(line, 7 + 2 * i, QStringLiteral("none")); // must not be looked at
    line = withField(line, 8, QString()); // no balance at all: 0, and no fault
    QVERIFY(record.parseLine(line));
    QCOMPARE(record.cellCount, count.toInt());
    for (int i = 0; i < Varnel3Data::maxCells; ++i) {
        QCOMPARE(record.cells[i].voltage, i < read ? 4100 + i : 1);
        QCOMPARE(record.cells[i].balance, i < read ? i % 11 * 10 : 1);
        QCOMPARE(record.cells[i].balanceCharge, 77); // not the parser's
    }
}

void TestLineParsers::statistics_data()
{
    columns<QString, QVector<int>>({"head", "maxMinAverageBalance"});
    QTest::newRow("six cells") << "#06C05____B0" << QVector<int>{4105, 4100, 4102, 50};
    QTest::newRow("one cell") << "#01C05____B0" << QVector<int>{4100, 4100, 4100, 0};
    QTest::newRow("sixteen") << "#16C05____B0" << QVector<int>{4115, 4100, 4107, 100};
    QTest::newRow("99: sixteen are summed") << "#99C05____B0" << QVector<int>{4115, 4100, 65720 / 99, 100};
    QTest::newRow("none") << "#00C05____B0" << QVector<int>{4100, 4100, 4100, 0};
    QTest::newRow("negative") << "#-3C05____B0" << QVector<int>{900, 900, 900, 20};
    QTest::newRow("no balancing data") << "#06C05_____0" << QVector<int>{0, 0, 0, 0};
}

void TestLineParsers::statistics()
{
    QFETCH(QString, head);
    Varnel3Data record;
    record.cells[0] = {900, 20, 0, 0.0};
    record.cellMax = record.cellMin = record.cellAverage = record.balanceMax = 1;
    QVERIFY(record.parseLine(chargerLine(head.toLatin1().constData(), plainFigures)));
    QTEST((QVector<int>{record.cellMax, record.cellMin, record.cellAverage, record.balanceMax}),
        "maxMinAverageBalance");
}

void TestLineParsers::balancerSumsItsCells()
{
    Varnel3Data record;
    record.time = 55;
    QVERIFY(record.parseLine(balancerLine("#t0305C3900")));
    QCOMPARE(record.voltage, 3900 + 4001 + 4002 + 4003); // one more than the count
    QCOMPARE(record.cells[3].balance, 30);
    QCOMPARE(record.cells[4].voltage, 0);
    QCOMPARE(record.cellMax, 4002);
    QCOMPARE(record.cellAverage, (3900 + 4001 + 4002) / 3);
    QCOMPARE(record.time, 55);

    QVERIFY(record.parseLine(balancerLine("#t9905C3900")));
    QCOMPARE(record.cells[11].voltage, 4011);
    QCOMPARE(record.cells[12].voltage, 0);

    QString huge = balancerLine("#t0205C9999");
    huge.replace(QLatin1String(",4001,"), QLatin1String(",2147483647,"));
    QVERIFY(record.parseLine(huge));
    QCOMPARE(record.voltage, INT_MAX);
}

void TestLineParsers::chemistryCodes_data()
{
    // line: %1 is the code; names: of the codes 0 to 13, "-" where refused
    columns<QString, QString>({"line", "names"});
    QTest::newRow("charger") << chargerLine("#06C%1_____0", plainFigures)
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

// Random damage to good lines: both entries must take or refuse the same and leave the same behind.
void TestLineParsers::bytesAndTextAgree()
{
    const QByteArrayList seeds = {chargerLine("#06C05_1__B2", plainFigures).toLatin1(),
        chargerLine("#16C05_1__B2", plainFigures).toLatin1(),
        chargerLine("#06C05_1__B2", "262143,25200,02000,025,01234,00045").toLatin1(),
        chargerLine("#06C05_1__B2", "4262143000,25200,02000,025,01234,00045").toLatin1(),
        "#03F05____B0,00001,00002,00003,004,00005,00006,4000,:,4001,1" + QByteArray(",0000,0").repeated(14),
        "#F0605 00123,25200+02000,025,01234", "#F0605 00123,25200,+2000,025,01234",
        balancerLine("#t0306D4000").toLatin1(), "!1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"};
    const QByteArray letters("0123456789,,+- \t\r:#!BCF\xa0\xe9\0", 26);
    QRandomGenerator random(1);
    int accepted = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray line = seeds[round % seeds.size()];
        for (int damage = random.bounded(4); damage > 0; --damage) {
            const int at = random.bounded(line.size());
            const int kind = random.bounded(8);
            if (kind == 0)
                line.remove(at, 1);
            else if (kind == 1)
                line.insert(at, letters.at(random.bounded(letters.size())));
            else
                line[at] = letters.at(random.bounded(letters.size()));
        }
        Varnel3Data fromBytes;
        Varnel3Data fromText;
        const QString text = latin1(line);
        fromBytes.cells[3].voltage = fromText.cells[3].voltage = -7; // shows what was not written
        const bool taken = fromBytes.parseLine(latin1(line)) || fromBytes.parseResistanceLine(latin1(line));
        QCOMPARE(fromText.parseLine(text) || fromText.parseResistanceLine(text), taken);
        QVERIFY2(sameRecord(fromBytes, fromText), line.constData());
        accepted += taken;
    }
    QVERIFY(accepted > 5000 && accepted < 19000); // the damage must neither spare nor spoil everything
}

QTEST_GUILESS_MAIN(TestLineParsers)
#include "tst_lineparsers.moc"
