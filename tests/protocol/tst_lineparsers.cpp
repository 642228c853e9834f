#include "protocol/fixedlayout.h"
#include "protocol/lineparsers.h"
#include "data/timetext.h"

#include "support/records.h"
#include "support/seed.h"

#include <QTest>

namespace {

// Of cell i, neither rising nor falling.
int voltageOf(int i)
{
    return 4100 + (i * 7 + 5) % 16;
}

int loadOf(int i)
{
    return (i * 7 + 5) % 11;
}

QString chargerLine(const char *head, const char *figures = "00123,25200,02000,025,01234,00045")
{
    QString line = QLatin1String(head) + QLatin1Char(',') + QLatin1String(figures);
    for (int i = 0; i < Varnel3Data::maxCells; ++i)
        line += QStringLiteral(",%1,").arg(voltageOf(i)) + QChar('0' + loadOf(i));
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

QString numbers(std::initializer_list<int> values)
{
    QString text;
    for (const int value : values)
        text += QLatin1Char(' ') + QString::number(value);
    return text;
}

// "Varnel 3 Charge 6xLiPo"
QString headOf(const Varnel3Data &record)
{
    return QStringLiteral("%1 %2 %3x%4")
        .arg(Varnel3Data::deviceName(record.device), Varnel3Data::modeName(record.mode))
        .arg(record.cellCount)
        .arg(Varnel3Data::cellTypeName(record.cellType));
}

// Flags ('#' for NUL), balancing current, time, voltage, current, temperature, energy, resistance.
QString figuresOf(const Varnel3Data &record)
{
    QString flags = QStringLiteral(" ");
    for (const char flag : {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5})
        flags += QLatin1Char(flag != 0 ? flag : '#');
    return flags + numbers({record.ballansingCurrent}) + QLatin1Char(' ') + clockText(record)
        + numbers(
            {record.voltage, record.current, record.temperature, record.energy, record.internalResistance});
}

// %1 of `line` is each of the `codes`, with a blank between: what the record then says, behind a '-' if
// refused.
QStringList ofCodes(const QString &line, const QString &codes, QString (*said)(const Varnel3Data &))
{
    QStringList all;
    const QStringList each = codes.split(QLatin1Char(' '));
    for (const QString &code : each) {
        Varnel3Data record;
        record.ballansingCurrent = 7; // of the line before
        const bool taken = record.parseLine(QString(line).replace(QLatin1String("%1"), code));
        all += (taken ? QString() : QStringLiteral("-")) + said(record);
    }
    return all;
}

Varnel3Data recordOf(const QString &line)
{
    Varnel3Data record;
    record.parseLine(line);
    return record;
}

} // namespace

/// Lines of all dialects in, records out, and what is refused; the record line, and what comes back from it.
class TestLineParsers : public QObject {
    Q_OBJECT

private slots:
    void figures()
    {
        const std::pair<QString, QString> lines[] = {
            {chargerLine("#06C05_____2"), "Varnel 3 Charge 6xLiPo _____ 500 00:02:03 25200 2000 25 1234 45"},
            {chargerLine("#06C05%S\"\xe9 0").replace(7, 1, "\u0141"),
                "Varnel 3 Charge 6xLiPo %#\"\u00e9  0 00:02:03 25200 2000 25 1234 45"},
            {chargerLine("# 6D 0_____0", " 3661, +5 ,-20,-05,\t7,0"),
                "Varnel 3 Discharge 6xNiCd _____ 0 01:01:01 5 -20 -5 7 0"},
            {chargerLine("#06T12_____9", "100000,1,2,3,4,5"),
                "Varnel 3 Test 6xLTO _____ 2250 27:46:40 1 2 3 4 5"},
            {chargerLine("#06B05_1___0"),
                "Varnel 3 Balancing 6xLiPo _1___ 0 00:02:03 25200 2000 25 12340 45"},
            {chargerLine("#06F05_1SME0", "1,2,3,4,2000000000,6"), // beyond 32 bits
                "Varnel 3 Format 6xLiPo _1SME 0 00:00:01 2 3 4 2147483647 6"},
            {chargerLine("#06F05_1___0", "1,2,3,4,-2000000000,6"),
                "Varnel 3 Format 6xLiPo _1___ 0 00:00:01 2 3 4 -2147483648 6"},
            {"#c0605 00123,25200+02000,025,01234",
                "Varnel 2 Charge 6xLiIo _____ 0 00:02:03 25200 2000 25 1234 0"},
            {"#f0612x12345,00001-000029,3,4", "Varnel 2 Discharge 6xLiHV _____ 0 03:25:45 1 2 3 4 0"},
            {"#D0606 00123,25200,-2000,025,01234",
                "Varnel 2+ Discharge 6xLiPo _____ 0 00:02:03 25200 2000 25 1234 0"},
            {"#F0606 00123,2,+20009,025,01", "Varnel 2+ Charge 6xLiPo _____ 0 00:02:03 2 2000 25 1 0"},
            {balancerLine("#t0206D4000"), "Tandor Balancing 2xLiPo ____B 750 00:00:00 12003 0 0 0 0"},
            {balancerLine("#t0008x4000"), "Tandor Balancing 0xLiHV ____B 0 00:00:00 4000 0 0 0 0"},
            {balancerLine("#t0205C9999").replace(",4001,", ",2147483647,"),
                "Tandor Balancing 2xLiIo ____B 500 00:00:00 2147483647 0 0 0 0"}};
        for (const auto &line : lines)
            QCOMPARE(headOf(recordOf(line.first)) + figuresOf(recordOf(line.first)), line.second);
    }

    void codes()
    {
        const auto type
            = [](const Varnel3Data &record) { return Varnel3Data::cellTypeName(record.cellType); };
        const auto mode = [](const Varnel3Data &record) { return Varnel3Data::modeName(record.mode); };
        const auto current
            = [](const Varnel3Data &record) { return QString::number(record.ballansingCurrent); };
        const QString types = QStringLiteral("00 01 02 03 04 05 06 07 08 09 10 11 12 13 -1");
        const QString fromZero
            = QStringLiteral("NiCd NiMh Pb RAM LiIo LiPo LiTa LiFe LiS NiZn LiXX LiHV LTO");
        const QString fromOne = QString(fromZero).replace(QLatin1String("LTO"), QLatin1String("-None -None"));
        const std::tuple<QString, QString, QString (*)(const Varnel3Data &), QString> tables[]
            = {{chargerLine("#06C%1_____0"), types, type, fromZero + " -None -None"},
                {"#c06%1 00123,25200+02000,025,01234", types, type, "-None " + fromOne},
                {"#c06%1 00123,25200,+2000,025,01234", types, type, "-None " + fromOne},
                {balancerLine("#t02%1C4000"), "04 05 06 07 08 09", type, "-None LiIo LiPo LiFe LiHV -None"},
                {chargerLine("#06%105_____0"), "C D B F T c \u0443", mode,
                    "Charge Discharge Balancing Format Test -None -None"},
                {"#%10605 00123,25200+02000,025,01234", "C c D d F f B", mode,
                    "Charge Charge Discharge Discharge Charge Charge -None"},
                {"#%10606 00123,25200,-2000,025,01234", "C c D d F f", mode,
                    "Charge Charge Discharge Discharge Discharge Discharge"},
                {chargerLine("#06C05_____%1"), "0 1 4 9 _", current, "0 250 1000 2250 -0"},
                {balancerLine("#t0206%14000"), "A B C D E", current, "0 250 500 750 0"}};
        for (const auto &[line, codes, said, expected] : tables)
            QCOMPARE(ofCodes(line, codes, said).join(QLatin1Char(' ')), expected);
    }

    // What is left of a record that said charge and seven LiFe cells before, of no device.
    void refused()
    {
        const QString good = chargerLine("#06D05_____0");
        const auto withHead = [&good](const char *head) { return withField(good, 0, QLatin1String(head)); };
        QStringList badFields = {withField(good, 1, QChar(0xfeff) + QString("1"))};
        for (int field = 1; field <= 7 + 2 * 6; field += field < 7 ? 1 : 2)
            badFields << withField(good, field, QString()) << withField(good, field, "3000000000");
        const std::pair<const char *, QStringList> cases[]
            = {{"None Charge 7xLiFe",
                   {QString(), good.mid(1), ' ' + good, good.left(good.lastIndexOf(',')), good + ',',
                       good + QString(361, ',')}},
                {"Varnel 3 Charge 7xLiFe",
                    {withHead("#06D05_____"), withHead("#06D05_____00"), withHead("#xxD05_____0")}},
                {"Varnel 3 Discharge 6xLiFe", {withHead("#06D x_____0")}},
                {"Varnel 3 Discharge 6xLiPo", badFields},
                {"Varnel 2 Charge 7xLiFe", {"#c060500123,25200+02000,025,01234"}},
                {"Varnel 2 Discharge 7xLiFe", {"#dx605 00123,25200+02000,025,01234"}},
                {"Varnel 2 Discharge 6xLiFe", {"#d06x5 00123,25200+02000,025,01234"}},
                {"Varnel 2 Discharge 6xLiIo",
                    {"#d0605 0012x,25200+02000,025,01234", "#d0605 00123,2520x+02000,025,01234",
                        "#f0605 00123,2520,025,01234", "#d0605 00123,25200+02000,,01234",
                        "#d0605 00123,25200+02000,025,"}},
                {"Varnel 2+ Charge 6xLiIo",
                    {"#f0605 00123,x,+2000,025,01234", "#f0605 00123,25200,+,025,01234",
                        "#f0605 00123,25200,+2000,x,01234", "#f0605 00123,25200,+2000,025,x"}},
                {"Tandor Charge 7xLiFe", {balancerLine("#t0206D04000")}},
                {"Tandor Balancing 7xLiFe", {balancerLine("#tx206D4000")}},
                {"Tandor Balancing 2xLiFe", {balancerLine("#t02x6D4000")}},
                {"Tandor Balancing 2xLiPo",
                    {balancerLine("#t0206D4o00"), balancerLine("#t0206D4000").replace("4002", "4oo2")}}};
        for (const auto &[left, lines] : cases) {
            for (const QString &line : lines) {
                Varnel3Data record;
                record.mode = Varnel3Data::Charge;
                record.cellCount = record.cellType = 7;
                QVERIFY2(!record.parseLine(line), qPrintable(line));
                QCOMPARE(headOf(record), QLatin1String(left));
                QCOMPARE(record.flag5, record.device == Varnel3Data::Tandor ? 'B' : '_');
            }
        }
    }

    // read: cells that the line overwrites; statistics: highest, lowest, mean, balance
    void cells()
    {
        const std::tuple<const char *, const char *, int, const char *> cases[]
            = {{"-5", "B", 0, " 900 900 900 20"}, {"00", "B", 1, " 4105 4105 4105 0"},
                {"01", "B", 2, " 4105 4105 4105 0"}, {"02", "B", 3, " 4112 4105 4108 10"},
                {"06", "B", 7, " 4112 4101 4106 80"}, {"15", "B", 16, " 4115 4100 4107 100"},
                {"16", "B", 16, " 4115 4100 4107 100"},
                {"99", "B", 16, " 4115 4100 663 100"}, // sixteen are summed
                {"06", "_", 7, " 0 0 0 0"}};
        for (const auto &[count, flag5, read, expected] : cases) {
            Varnel3Data record;
            record.cellMax = record.cellMin = record.cellAverage = record.balanceMax = 1;
            for (CellData &cell : record.cells)
                cell = {900, 20, 77, 0.5};
            QString line = chargerLine("#06C05____B0").replace(1, 2, count).replace(10, 1, flag5);
            for (int i = read; i < Varnel3Data::maxCells; ++i)
                line = withField(line, 7 + 2 * i, QStringLiteral("none")); // must not be looked at
            line = withField(line, 8, QString()); // no balance at all: 0, and no fault
            QVERIFY(record.parseLine(line));
            for (int i = 0; i < Varnel3Data::maxCells; ++i) {
                QCOMPARE(record.cells[i].voltage, i < read ? voltageOf(i) : 900);
                QCOMPARE(record.cells[i].balance, i >= read ? 20 : i > 0 ? 10 * loadOf(i) : 0);
                QCOMPARE(record.cells[i].balanceCharge, 77); // not the parser's
            }
            QCOMPARE(numbers({record.cellMax, record.cellMin, record.cellAverage, record.balanceMax}),
                QLatin1String(expected));
        }
    }

    void balancerCells()
    {
        Varnel3Data record;
        record.time = 55;
        QVERIFY(record.parseLine(balancerLine("#t0305C3900")));
        QCOMPARE(numbers({record.voltage, record.cells[0].balance, record.cells[3].balance,
                     record.cells[4].voltage, record.cellMax, record.cellAverage, record.time}),
            numbers({3900 + 4001 + 4002 + 4003, 10, 30, 0, 4002, (3900 + 4001 + 4002) / 3, 55}));
        QVERIFY(record.parseLine(balancerLine("#t9905C3900"))); // there are twelve
        QCOMPARE(numbers({record.cells[11].voltage, record.cells[12].voltage}), QStringLiteral(" 4011 0"));
    }

    // Whether a line is taken, and the second cell and the sum behind it, which were 9.9 and -1.
    void resistanceLine()
    {
        const QString tail = QStringLiteral(",3").repeated(13);
        const std::pair<QString, const char *> cases[] = {{"!12,25,3" + tail, "1 2.5 7.9"},
            {"!12,abc,3" + tail, "1 9.9 5.4"}, {"!12,,3" + tail + "\r\n", "1 9.9 5.4"},
            {"!12,25" + tail, "0 9.9 -1"}, {"!12,25,3,3" + tail, "0 9.9 -1"},
            {" !12,25,3" + tail, "0 9.9 -1"}, {"!", "0 9.9 -1"}, {"", "0 9.9 -1"}};
        for (const auto &expected : cases) {
            Varnel3Data record;
            record.cells[1].resistance = 9.9;
            record.resistanceSum = -1.0;
            const bool taken = record.parseResistanceLine(expected.first);
            QCOMPARE(QStringLiteral("%1 %2 %3")
                         .arg(taken)
                         .arg(record.cells[1].resistance)
                         .arg(record.resistanceSum),
                QLatin1String(expected.second));
            QCOMPARE(record.resistanceValid, taken);
        }
    }

    // Each single byte of good lines lost, doubled, or another: what is not just of the usual widths is left
    // untouched, and the rest becomes what the parser of the dialect makes of it.
    void quickWayIsTheUsualOne()
    {
        const QByteArrayList lines
            = {chargerLine("#06C05_1__B2").toLatin1(), chargerLine("#16C05_1__B2").toLatin1(),
                chargerLine("#06D05_1__B2", "262143,25200,02000,025,01234,00045").toLatin1(),
                chargerLine("#06C05_1__B2", "4262143000,25200,02000,025,01234,00045").toLatin1(),
                "#03F05____B0,00001,00002,00003,004,00005,00006,4000,:,4001,1"
                    + QByteArray(",0000,0").repeated(14),
                "#00T12____B0,000000001,00002,00003,004,00005,00006" + QByteArray(",0000,0").repeated(16)};
        const QByteArray letters("019,+- \t\r/:;#!BCF\xa0\xe9\0", 20);
        int taken = 0;
        const auto take = [&taken](const QByteArray &line) {
            Varnel3Data before;
            before.cells[3].voltage = before.cells[9].balance = -7; // shows what was not written
            Varnel3Data record = before;
            const bool quick = parseFixedLayout(record, textOf(line));
            taken += quick;
            before.device = quick ? int(Varnel3Data::Varnel3) : before.device;
            QVERIFY2(!quick || parseVarnel3(before, LineFields(textOf(line))), line);
            QVERIFY2(fieldsOf(record) == fieldsOf(before), line);
        };
        for (const QByteArray &line : lines) {
            for (int at = 0; at < line.size() && !QTest::currentTestFailed(); ++at) {
                for (const char letter : letters)
                    take(QByteArray(line).replace(at, 1, &letter, 1));
                take(QByteArray(line).remove(at, 1));
                take(QByteArray(line).insert(at, line[at]));
                take(line.left(at));
            }
        }
        QVERIFY(taken > 1000); // the damage does not spoil everything
    }

    void recordLine()
    {
        // The cell behind the last one is read and written, the next is neither.
        const QString line = QLatin1String("#06C05_____0,00123,25200,02000,025,00150,00045,4200,:,4200,9")
            + QStringLiteral(",4200,0").repeated(4) + QStringLiteral(",0016,0")
            + QStringLiteral(",0000,0").repeated(9);
        Varnel3Data pack = recordOf(line);
        pack.cells[7].voltage = 17;
        pack.cells[1].balance = 99;
        QCOMPARE(pack.toRecordLine(), line);
        int cell = 0;
        for (const int balance : {2079, 2080, -480, -490}) // the last that a character says, and beyond
            pack.cells[cell++].balance = balance;
        QVERIFY(written(pack).contains(QByteArray(",4200,\xff,4200,?,4200,\0,4200,?,", 29)));
        const std::tuple<int, int, int, int, const char *> heads[] = {{1, 0, 1, 250, "#01D00_____1"},
            {2, 12, 16, 1000, "#16B12_____4"}, {3, 5, 99, 300, "#99F05_____0"},
            {0, 10, 6, 249, "#06C10_____0"}, {3, 5, 6, 1250, "#06F05_____0"}, {4, 5, 6, 750, "#06 05_____3"},
            {5, 13, 0, 500, "#00  _____2"}, {-1, -1, -1, -250, "#-1  _____0"}, {0, 13, 6, 0, "#06C _____0"},
            {0, 5, -9, 0, "#-9C05_____0"}, {0, 5, -10, 0, "#-10C05_____0"}, {0, 5, 100, 0, "#100C05_____0"}};
        for (const auto &[mode, chemistry, cells, current, head] : heads) {
            Varnel3Data record = pack;
            record.mode = mode;
            record.cellType = chemistry;
            record.cellCount = cells;
            record.ballansingCurrent = current;
            QCOMPARE(written(record).split(',').first(), QByteArray(head));
            QCOMPARE(Varnel3Data().parseLine(record.toRecordLine()), isRecordLineReadable(record));
        }
    }

    // By a line of the form that Qt would give it. The quick way takes what is of the usual widths.
    void randomRecordsComeBack()
    {
        RandomRecords random(randomSeed());
        for (int round = 0; round < 20000; ++round) {
            const bool usual = round % 2 == 0;
            const Varnel3Data record = random.next(usual);
            const QByteArray line = written(record);
            Varnel3Data back;
            Varnel3Data quickBack;
            QVERIFY2(isRecordLineReadable(record), line);
            QVERIFY2(back.parseLine(QLatin1String(line.constData(), line.size())), line);
            QVERIFY2(parseFixedLayout(quickBack, textOf(line)) || !usual, line);
            QVERIFY2(fieldsOf(back) == fieldsOf(record), line);
            QVERIFY2(written(back) == line, line);
            const auto filled = [](int number, int width) { // as Qt does
                return QStringLiteral("%1").arg(number, width, 10, QLatin1Char('0')).toLatin1();
            };
            const QByteArrayList fields = line.split(',');
            QVERIFY2(fields.mid(1, 6)
                    == QByteArrayList({filled(record.time, 5), filled(record.voltage, 5),
                        filled(record.current, 5), filled(record.temperature, 3),
                        filled(record.flag2 == '1' ? record.energy / 10 : record.energy, 5),
                        filled(record.internalResistance, 5)}),
                line);
            QVERIFY2(record.cellCount < 0 || fields[7] == filled(record.cells[0].voltage, 4), line);
            QVERIFY2(fields.size() == 39 && line.size() + 2 <= maxRecordLineLength, line);
        }
    }
};

QTEST_GUILESS_MAIN(TestLineParsers)
#include "tst_lineparsers.moc"
