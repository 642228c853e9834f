// What the simulated devices say they mean equals what the program's parsers read from their lines: two
// implementations that share no code.
#include "data/varnel3data.h"
#include "simulator/linewriter.h"
#include "simulator/process.h"

#include <QtTest>

class TestSimulatedLines : public QObject {
    Q_OBJECT

private slots:
    void linesAreReadAsMeant_data();
    void linesAreReadAsMeant();
    void resistancesAreReadAsMeant();

private:
    static sim::DeviceSettings settings(const QString &options);
    static void compare(const sim::Reading &meant, const Varnel3Data &read);
};

sim::DeviceSettings TestSimulatedLines::settings(const QString &options)
{
    QString error;
    const sim::DeviceSettings read = sim::DeviceSettings::parse(QLatin1String("COM1:") + options, &error);
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
    return read;
}

void TestSimulatedLines::linesAreReadAsMeant_data()
{
    QTest::addColumn<QString>("options");
    for (const char *options :
        {"varnel3,balance=750,weak=2,rigaps=25", "varnel3,cells=14,chemistry=NiMh,capacity=3000",
            "varnel3,cells=16,chemistry=LiXX,balance=1000,mode=discharge", "varnel3,mode=balance,cells=1",
            "varnel3,mode=format,chemistry=NiCd,cycles=1", "varnel3,mode=test,chemistry=LTO,balance=500",
            "varnel3,capacity=90000,chemistry=Pb", "varnel3,sensor=off,zero", "varnel3,fail=600,balance",
            "varnel2plus,mode=discharge,chemistry=LiHV", "varnel2plus,capacity=12000,current=20000",
            "varnel2plus,mode=format,chemistry=NiMh,cycles=1", "varnel2,chemistry=NiZn,cells=16",
            "varnel2,capacity=60000,current=30000", "varnel2,mode=format,chemistry=RAM,cycles=1",
            "tandor,cells=12,balance=750", "tandor,cells=3,chemistry=LiFe,balance=500",
            "tandor,cells=1,balance=250"})
        QTest::newRow(options) << options;
}

void TestSimulatedLines::linesAreReadAsMeant()
{
    QFETCH(QString, options);
    const sim::DeviceSettings device = settings(options);
    sim::Process process(device, 7);
    Varnel3Data read;
    int time = 0, energy = 0;
    for (int line = 0; line < 20000 && !process.finished(); ++line) {
        const sim::Reading meant = process.next();
        const QString text = QString::fromLatin1(sim::measurementLine(meant));
        QVERIFY2(text.endsWith(QLatin1String("\r\n")), qPrintable(text));
        QVERIFY2(read.parseLine(text.chopped(2)), qPrintable(text));
        compare(meant, read);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(text));
        QCOMPARE(meant.seconds - time, line == 0 && device.fromZero ? 0 : device.secondsPerLine());
        QVERIFY2(meant.milliampHours >= energy || meant.milliampHours == 0, qPrintable(text));
        time = meant.seconds;
        energy = meant.milliampHours;
    }
    const Varnel3Data before = read;
    const sim::Reading last = process.ending(process.endLetter());
    QVERIFY(read.parseLine(QString::fromLatin1(sim::measurementLine(last).trimmed())));
    QCOMPARE(
        read.flag3, device.model == sim::Model::Varnel3 ? (device.failAfter > 0 ? 'S' : 'E') : before.flag3);
}

void TestSimulatedLines::compare(const sim::Reading &meant, const Varnel3Data &read)
{
    static const int devices[]
        = {Varnel3Data::Varnel3, Varnel3Data::Varnel2Plus, Varnel3Data::Varnel2, Varnel3Data::Tandor};
    const bool older = meant.model == sim::Model::Varnel2 || meant.model == sim::Model::Varnel2Plus;
    const bool direction = older && meant.task == sim::Task::Format; // what these report formatting as
    QCOMPARE(read.device, devices[int(meant.model)]);
    QCOMPARE(read.mode, direction ? int(!meant.charging) : int(meant.task));
    QCOMPARE(read.cellType, meant.chemistry);
    QCOMPARE(read.cellCount, meant.cellCount);
    if (meant.model != sim::Model::Tandor) {
        QCOMPARE(read.time, meant.seconds);
        QCOMPARE(read.voltage, meant.millivolts);
        QCOMPARE(read.current, meant.milliamps);
        QCOMPARE(read.temperature, meant.tenthDegrees);
        QCOMPARE(read.energy, meant.coarseEnergy ? meant.milliampHours / 10 * 10 : meant.milliampHours);
    }
    if (meant.model == sim::Model::Varnel3) {
        QCOMPARE(read.internalResistance, meant.milliohms);
        QCOMPARE(read.flag3, meant.endLetter);
    }
    if (older)
        return;
    QCOMPARE(read.flag5, meant.cellData ? 'B' : '_');
    QCOMPARE(read.ballansingCurrent, meant.balancingMilliamps);
    for (int i = 0; meant.cellData && i < meant.cellCount; ++i) {
        QCOMPARE(read.cells[i].voltage, meant.cells[size_t(i)].millivolts);
        QCOMPARE(read.cells[i].balance, meant.cells[size_t(i)].level * 10);
    }
}

void TestSimulatedLines::resistancesAreReadAsMeant()
{
    sim::Process process(settings(QStringLiteral("varnel3,cells=16,balance")), 3);
    const sim::Reading meant = process.next();
    Varnel3Data read;
    QVERIFY(read.parseResistanceLine(QString::fromLatin1(sim::resistanceLine(meant))));
    for (int i = 0; i < 16; ++i)
        QCOMPARE(read.cells[i].resistance, meant.cells[size_t(i)].tenthMilliohms / 10.0);
}

QTEST_APPLESS_MAIN(TestSimulatedLines)
#include "tst_simulatedlines.moc"
