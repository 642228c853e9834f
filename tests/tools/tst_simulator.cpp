#include "data/varnel3data.h"
#include "simulator/linewriter.h"
#include "simulator/process.h"
#include "support/columns.h"
#include "support/literal.h"

#include <QtTest>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

/// The simulated devices. What they say they mean equals what the program's parsers read from their lines:
/// two implementations that share no code.
class TestSimulator : public QObject {
    Q_OBJECT

private slots:
    void linesAreReadAsMeant_data();
    void linesAreReadAsMeant();
    void programTakesCommands();

private:
    static void compare(const sim::Reading &meant, const Varnel3Data &read);

    QTemporaryDir folder;
    const QString third = folder.filePath("COM3"_s);
};

void TestSimulator::linesAreReadAsMeant_data()
{
    columns<QString>({"options"});
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

void TestSimulator::linesAreReadAsMeant()
{
    QFETCH(QString, options);
    QString error;
    const sim::DeviceSettings device = sim::DeviceSettings::parse("COM1:" + options, &error);
    QCOMPARE(error, QString());
    sim::Process process(device, 7);
    Varnel3Data read;
    int time = 0, energy = 0;
    for (int line = 0; line < 20000 && !process.finished(); ++line) {
        const sim::Reading meant = process.next();
        const QString text = QString::fromLatin1(sim::measurementLine(meant));
        QVERIFY2(text.endsWith("\r\n"_s) && read.parseLine(text.chopped(2)), qPrintable(text));
        compare(meant, read);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(text));
        QCOMPARE(meant.seconds - time, line == 0 && device.fromZero ? 0 : device.secondsPerLine());
        QVERIFY2(meant.milliampHours >= energy || meant.milliampHours == 0, qPrintable(text));
        time = meant.seconds;
        energy = meant.milliampHours;
    }
    if (device.model != sim::Model::Varnel3)
        return;
    const sim::Reading last = process.ending(process.endLetter());
    QVERIFY(read.parseLine(QString::fromLatin1(sim::measurementLine(last).trimmed())));
    QCOMPARE(read.flag3, device.failAfter > 0 ? 'S' : 'E');
    QVERIFY(read.parseResistanceLine(QString::fromLatin1(sim::resistanceLine(last))));
    for (int i = 0; i < 16; ++i)
        QCOMPARE(read.cells[i].resistance, last.cells[size_t(i)].tenthMilliohms / 10.0);
}

void TestSimulator::compare(const sim::Reading &meant, const Varnel3Data &read)
{
    static const int devices[]
        = {Varnel3Data::Varnel3, Varnel3Data::Varnel2Plus, Varnel3Data::Varnel2, Varnel3Data::Tandor};
    const bool older = meant.model == sim::Model::Varnel2 || meant.model == sim::Model::Varnel2Plus;
    const bool direction = older && meant.task == sim::Task::Format; // what these report formatting as
    using Figures = QVector<int>;
    QCOMPARE(Figures({read.device, read.mode, read.cellType, read.cellCount}),
        Figures({devices[int(meant.model)], direction ? int(!meant.charging) : int(meant.task),
            meant.chemistry, meant.cellCount}));
    const int energy = meant.coarseEnergy ? meant.milliampHours / 10 * 10 : meant.milliampHours;
    if (meant.model != sim::Model::Tandor)
        QCOMPARE(Figures({read.time, read.voltage, read.current, read.temperature, read.energy}),
            Figures({meant.seconds, meant.millivolts, meant.milliamps, meant.tenthDegrees, energy}));
    if (meant.model == sim::Model::Varnel3)
        QCOMPARE(Figures({read.internalResistance, read.flag3}), Figures({meant.milliohms, meant.endLetter}));
    if (!older)
        QCOMPARE(Figures({read.flag5, read.ballansingCurrent}),
            Figures({meant.cellData ? 'B' : '_', meant.balancingMilliamps}));
    for (int i = 0; !older && meant.cellData && i < meant.cellCount; ++i)
        QCOMPARE(Figures({read.cells[i].voltage, read.cells[i].balance}),
            Figures({meant.cells[size_t(i)].millivolts, meant.cells[size_t(i)].level * 10}));
}

void TestSimulator::programTakesCommands()
{
    const QString program = QStringLiteral(VARNELSIM);
    for (const char *wrong :
        {"ttyS0", "COM3:varnel4", "COM3:cells=17", "COM3:noise=2", "COM3:replay=/nowhere/x"})
        QVERIFY2(QProcess::execute(program, {"--dir", folder.path(), "--device", wrong}) > 0, wrong);
    QFile file(folder.filePath("lines"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#one\r\n\n!two\n# three") > 0);
    file.close();
    QProcess running;
    running.start(program,
        {"--dir", folder.path(), "--speed", "50", "--device", "COM3:start=open,replay=" + file.fileName(),
            "--device", "COM4:varnel3", "--device", "COM5:tandor"});
    QTRY_VERIFY(QFileInfo(folder.filePath("COM5"_s)).isSymLink());
    const int port = open(QFile::encodeName(third).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    QByteArray heard;
    const auto hear = [&heard, port] {
        char buffer[1024];
        const ssize_t size = read(port, buffer, sizeof buffer);
        return heard.append(buffer, int(std::max<ssize_t>(size, 0)));
    };
    QTRY_COMPARE(hear(), QByteArray("#one\r\n!two\r\n# three\r\n"));
    running.write("unplug COM4\nstatus COM5\nunplug COM8\njump COM4\nspeed fast\nsend COM3 #by hand\n");
    QTRY_COMPARE(hear().count("\n#by hand\r\n"), 1);
    close(port);
    QVERIFY(!QFileInfo(folder.filePath("COM4"_s)).isSymLink());
    const QByteArray said = running.readAllStandardOutput();
    for (const char *answer :
        {"COM5 tandor measuring", "no device at COM8", "'jump' is not", "a speed is a number"})
        QVERIFY2(said.contains(answer), said);
    running.terminate();
    QVERIFY(running.waitForFinished(30000) && running.exitCode() == 0);
    QVERIFY(!QFileInfo(third).isSymLink()); // nothing is left behind
}

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
