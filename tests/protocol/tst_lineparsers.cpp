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
    return QStringLiteral(" B=%1 t=%2 U=%3 I=%4 T=%5 E=%6 R=%7")
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
    void taken_data()
    {
        columns<QString, QString>({"line", "record"});
        const auto row = [](const QString &line, const char *record) {
            QTest::newRow(qPrintable(line.left(50))) << line << QString::fromLatin1(record);
        };
        row(chargerLine("#06C05_____2"),
            "Varnel 3 Charge 6xLiPo B=500 t=123 U=25200 I=2000 T=25 E=1234 R=45");
        row(chargerLine("# 6D 0_____0", " 3661, +5 ,-20,-05,\t7,0"),
            "Varnel 3 Discharge 6xNiCd B=0 t=3661 U=5 I=-20 T=-5 E=7 R=0");
        row(chargerLine("#06T12_____9", "100000,1,2,3,4,5"),
            "Varnel 3 Test 6xLTO B=2250 t=100000 U=1 I=2 T=3 E=4 R=5");
        row(chargerLine("#06B05_1___0"),
            "Varnel 3 Balancing 6xLiPo B=0 t=123 U=25200 I=2000 T=25 E=12340 R=45");
        row(chargerLine("#06F05_1___0", "1,2,3,4,2000000000,6"), // beyond 32 bits
            "Varnel 3 Format 6xLiPo B=0 t=1 U=2 I=3 T=4 E=2147483647 R=6");
        row(chargerLine("#06F05_1___0", "1,2,3,4,-2000000000,6"),
            "Varnel 3 Format 6xLiPo B=0 t=1 U=2 I=3 T=4 E=-2147483648 R=6");
        row(twoLine, "Varnel 2 Charge 6xLiIo B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
        row("#C0601 00001,00001+00002,3,4", "Varnel 2 Charge 6xNiCd B=0 t=1 U=1 I=2 T=3 E=4 R=0");
        row("#d0601 00001,00001+00002,3,4", "Varnel 2 Discharge 6xNiCd B=0 t=1 U=1 I=2 T=3 E=4 R=0");
        row("#F0601x00001,00001+00002,3,4", "Varnel 2 Charge 6xNiCd B=0 t=1 U=1 I=2 T=3 E=4 R=0");
        row("#f0612x12345,00001-000029,3,4", "Varnel 2 Discharge 6xLiHV B=0 t=12345 U=1 I=2 T=3 E=4 R=0");
        row(plusLine, "Varnel 2+ Discharge 6xLiPo B=0 t=123 U=25200 I=2000 T=25 E=1234 R=0");
        row("#F0606 00123,2,+20009,025,01", "Varnel 2+ Charge 6xLiPo B=0 t=123 U=2 I=2000 T=25 E=1 R=0");
        row("#f0606 00123,2,-2000,025,01", "Varnel 2+ Discharge 6xLiPo B=0 t=123 U=2 I=2000 T=25 E=1 R=0");
        row(balancerLine("#t0206D4000"), "Tandor Balancing 2xLiPo B=750 t=0 U=12003 I=0 T=0 E=0 R=0");
        row(balancerLine("#t0205B4000"), "Tandor Balancing 2xLiIo B=250 t=0 U=12003 I=0 T=0 E=0 R=0");
        row(balancerLine("#t0008x4000"), "Tandor Balancing 0xLiHV B=0 t=0 U=4000 I=0 T=0 E=0 R=0");
    }

    void taken()
    {
        QFETCH(QString, line);
        Varnel3Data record;
        QVERIFY(record.parseLine(line));
        QTEST(headOf(record) + figuresOf(record), "record");
        Varnel3Data split;
        split.setTime(record.time);
        QCOMPARE(record.hour * 10000 + record.minute * 100 + record.second,
            split.hour * 10000 + split.minute * 100 + split.second);
    }

    // What is left of a record that said charge and seven LiFe cells before, of no device.
    void refused_data()
    {
        columns<QString, QString>({"line", "left"});
        const auto rows = [](const char *left, const QStringList &lines) {
            for (const QString &line : lines)
                QTest::newRow(qPrintable(line.left(60) + " -> " + left)) << line << QString::fromLatin1(left);
        };
        const QString good = chargerLine("#06D05_____0");
        const auto withHead = [&good](const char *head) { return withField(good, 0, QLatin1String(head)); };
        rows("None Charge 7xLiFe",
            {QString(), good.mid(1), ' ' + good, good.left(good.lastIndexOf(',')), good + ',',
                good + QString(361, ',')});
        rows("Varnel 3 Charge 7xLiFe",
            {withHead("#06D05_____"), withHead("#06D05_____00"), withHead("#xxD05_____0")});
        rows("Varnel 3 None 6xLiFe",
            {withHead("#06X05_____0"), withHead("#06D05_____0").replace(3, 1, QChar(0x443))});
        rows("Varnel 3 Discharge 6xNone", {withHead("#06D13_____0"), withHead("#06D-1_____0")});
        rows("Varnel 3 Discharge 6xLiFe", {withHead("#06D x_____0")});
        rows("Varnel 3 Discharge 6xLiPo",
            {withHead("#06D05______"), withField(good, 1, QChar(0xfeff) + QString("1"))});
        for (int field = 1; field <= 7 + 2 * 6; field += field < 7 ? 1 : 2)
            rows("Varnel 3 Discharge 6xLiPo",
                {withField(good, field, QString()), withField(good, field, "3000000000")});
        rows("Varnel 2 Charge 7xLiFe", {"#c060500123,25200+02000,025,01234"});
        rows("Varnel 2 None 7xLiFe", {"#b0605 00123,25200+02000,025,01234"});
        rows("Varnel 2 Discharge 7xLiFe", {"#dx605 00123,25200+02000,025,01234"});
        rows("Varnel 2 Discharge 6xNone",
            {"#d0600 00123,25200+02000,025,01234", "#d0613 00123,25200+02000,025,01234"});
        rows("Varnel 2 Discharge 6xLiIo",
            {"#d0605 0012x,25200+02000,025,01234", "#d0605 00123,2520x+02000,025,01234",
                "#f0605 00123,2520,025,01234", "#d0605 00123,25200+02000,,01234",
                "#d0605 00123,25200+02000,025,"});
        rows("Varnel 2+ Charge 6xLiIo",
            {"#f0605 00123,x,+2000,025,01234", "#f0605 00123,25200,+,025,01234",
                "#f0605 00123,25200,+2000,x,01234", "#f0605 00123,25200,+2000,025,x"});
        rows("Tandor Charge 7xLiFe", {balancerLine("#t0206D04000")});
        rows("Tandor Balancing 7xLiFe", {balancerLine("#tx206D4000")});
        rows("Tandor Balancing 2xNone", {balancerLine("#t0209D4000")});
        rows("Tandor Balancing 2xLiPo",
            {balancerLine("#t0206D4o00"), balancerLine("#t0206D4000").replace("4002", "4oo2")});
    }

    void refused()
    {
        QFETCH(QString, line);
        Varnel3Data record;
        record.mode = Varnel3Data::Charge;
        record.cellCount = record.cellType = 7;
        QVERIFY(!record.parseLine(line));
        QTEST(headOf(record), "left");
        QCOMPARE(record.flag5, record.device == Varnel3Data::Tandor ? 'B' : '_');
    }

    void flagsTravelUnchanged()
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

    void cells_data()
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

    void cells()
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
        QTEST(
            statistics.arg(record.cellMax).arg(record.cellMin).arg(record.cellAverage).arg(record.balanceMax),
            "statistics");
        const QString falling = withField(withField(line, 9, QStringLiteral("4099")), 8, QStringLiteral(":"));
        if (read > 2 && flag5 == QLatin1String("B")) {
            QVERIFY(record.parseLine(falling)); // the first is not always the lowest
            QCOMPARE(record.cellMin, 4099);
            QCOMPARE(record.balanceMax, 100);
        }
    }

    void balancerSumsItsCells()
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

    void chemistryCodes_data()
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

    void chemistryCodes()
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

    // Cell 1 has 9.9 before.
    void resistanceLine()
    {
        struct Case {
            QString line;
            bool taken;
            double second;
            double sum;
        };
        const QString tail = QStringLiteral(",3").repeated(13);
        const Case cases[] = {{"!12,25,3" + tail, true, 2.5, 1.2 + 2.5 + 14 * 0.3},
            {"!12,abc,3" + tail, true, 9.9, 1.2 + 14 * 0.3},
            {"!12,,3" + tail + "\r\n", true, 9.9, 1.2 + 14 * 0.3}, {"!12,25" + tail, false, 9.9, -1},
            {"!12,25,3,3" + tail, false, 9.9, -1}, {" !12,25,3" + tail, false, 9.9, -1},
            {"!", false, 9.9, -1}, {"", false, 9.9, -1}};
        for (const Case &expected : cases) {
            Varnel3Data record;
            record.cells[1].resistance = 9.9;
            record.resistanceSum = -1.0;
            QCOMPARE(record.parseResistanceLine(expected.line), expected.taken);
            QCOMPARE(record.resistanceValid, expected.taken);
            QCOMPARE(record.cells[1].resistance, expected.second);
            QVERIFY(qAbs(record.resistanceSum - expected.sum) < 1e-9);
        }
    }

    // Each single byte of good lines lost, doubled, or another: the quick way of what is of the usual widths
    // must take nothing else, and leave what it does not take untouched.
    void bytesAndTextAgree()
    {
        const QByteArrayList lines
            = {chargerLine("#06C05_1__B2").toLatin1(), chargerLine("#16C05_1__B2").toLatin1(),
                chargerLine("#06D05_1__B2", "262143,25200,02000,025,01234,00045").toLatin1(),
                chargerLine("#06C05_1__B2", "4262143000,25200,02000,025,01234,00045").toLatin1(),
                "#03F05____B0,00001,00002,00003,004,00005,00006,4000,:,4001,1"
                    + QByteArray(",0000,0").repeated(14),
                "#00T12____B0,000000001,00002,00003,004,00005,00006" + QByteArray(",0000,0").repeated(16),
                twoLine, plusLine, balancerLine("#t0306D4000").toLatin1(),
                "!1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"};
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
};

QTEST_GUILESS_MAIN(TestLineParsers)
#include "tst_lineparsers.moc"
