#include "data/varnel3data.h"
#include "simulator/console.h"
#include "simulator/linewriter.h"
#include "simulator/rack.h"
#include "support/columns.h"
#include "support/literal.h"

#include <QProcess>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

using sim::LineKind;

namespace {

/// Opens a port as a program would and keeps every line.
class Listener : public QObject {
public:
    explicit Listener(const QString &port)
        : m_port(open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
        , m_notifier(m_port, QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { take(); });
    }
    ~Listener() override { close(m_port); }

    /// Lines that begin with `start`.
    QByteArrayList lines(const QByteArray &start = "#") const
    {
        QByteArrayList found;
        std::copy_if(m_lines.begin(), m_lines.end(), std::back_inserter(found),
            [&start](const QByteArray &line) { return line.startsWith(start); });
        return found;
    }

private:
    void take()
    {
        char buffer[65536];
        const ssize_t size = read(m_port, buffer, sizeof buffer);
        if (size <= 0)
            return m_notifier.setEnabled(false);
        m_rest.append(buffer, int(size));
        for (int end = m_rest.indexOf("\r\n"); end >= 0; end = m_rest.indexOf("\r\n")) {
            m_lines.append(m_rest.left(end));
            m_rest.remove(0, end + 2);
        }
    }

    int m_port;
    QSocketNotifier m_notifier;
    QByteArrayList m_lines;
    QByteArray m_rest;
};

sim::DeviceSettings settingsOf(const QString &options)
{
    QString error;
    const sim::DeviceSettings settings = sim::DeviceSettings::parse("COM1:" + options, &error);
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
    return settings;
}

} // namespace

/// The simulated devices. What they say they mean equals what the program's parsers read from their lines:
/// two implementations that share no code.
class TestSimulator : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void linesAreReadAsMeant_data();
    void linesAreReadAsMeant();
    void descriptionsAreChecked();
    void replayAndConsole();
    void endAndSilence();
    void programLeavesNothingBehind();

private:
    static void compare(const sim::Reading &meant, const Varnel3Data &read);
    sim::SimDevice *add(const QString &description);
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<sim::Rack> rack;
};

void TestSimulator::init()
{
    folder = std::make_unique<QTemporaryDir>();
    sim::RunSettings run;
    run.folder = folder->path();
    run.speed = 200;
    rack = std::make_unique<sim::Rack>(run);
}

void TestSimulator::cleanup()
{
    rack.reset();
    QCOMPARE(QDir(folder->path()).entryList({"COM*"}, QDir::AllEntries | QDir::System), QStringList());
}

sim::SimDevice *TestSimulator::add(const QString &description)
{
    QString error;
    sim::SimDevice *device = rack->add(description, &error);
    if (!device)
        qFatal("%s", qPrintable(error));
    return device;
}

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
    const sim::DeviceSettings device = settingsOf(options);
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

void TestSimulator::descriptionsAreChecked()
{
    for (const char *text :
        {"", "ttyS0:varnel3", "COM3/../x:varnel3", "COM3:varnel4", "COM3:varnel3,cells=17", "COM3:cells=x",
            "COM3:chemistry=Li", "COM3:balance=300", "COM3:noise=2", "COM3:endless=perhaps",
            "COM3:tandor,cells=13", "COM3:tandor,chemistry=NiMh", "COM3:varnel2,chemistry=LTO",
            "COM3:varnel2,mode=test", "COM3:varnel2plus,balance", "COM3:replay=", "COM3:replay=/nowhere/x"}) {
        QString error;
        QVERIFY2(!rack->add(QLatin1String(text), &error) && !error.isEmpty(), text);
    }
    for (const char *text : {"COM3", "COM4:", "COM5:noise=0.5,balance=off", "COM6:varnel2plus,mode=format"})
        QVERIFY(add(QLatin1String(text)));
}

void TestSimulator::replayAndConsole()
{
    QFile file(path("lines"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#one\r\n\n!two\n# three") > 0);
    file.close();
    add("COM7:start=open,replay="_s + file.fileName());
    const Listener listener(path("COM7"));
    sim::Console console(rack.get());
    const auto answer = [&console](const char *line) { return console.execute(QLatin1String(line)); };
    QCOMPARE(answer("send COM7 #by hand"), QString());
    QTRY_COMPARE(listener.lines(""), QByteArrayList({"#by hand", "#one", "!two", "# three"}));
    for (const char *line :
        {"unplug COM7", "plug COM7", "fault COM7 cut", "fault all noise=0.1", "end COM7 S", "speed 5", ""})
        QVERIFY2(answer(line).isEmpty(), line);
    for (const char *line :
        {"unplug COM8", "jump COM7", "end COM7 X", "fault COM7 smoke", "speed fast", "status", "help"})
        QVERIFY2(!answer(line).isEmpty(), line);
}

// As fast as the speed has it, but for silences that begin a new recording.
void TestSimulator::endAndSilence()
{
    sim::SimDevice *device
        = add("COM3:varnel3,balance,ri=20,start=open,duration=100,endlines=5,processes=2,pause=5"_s);
    const QSignalSpy ended(device, SIGNAL(processEnded(char)));
    const Listener listener(path("COM3"));
    device->setSpeed(1000);
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 2, 30000);
    QTRY_COMPARE(listener.lines().size(), 210);
    QCOMPARE(listener.lines("!").size(), 10);
    const QByteArrayList lines = listener.lines();
    for (int i = 0; i < 210; ++i)
        QVERIFY2(lines[i][8] == (i % 105 < 100 ? '_' : 'E')
                && lines[i].mid(13, 5).toInt() == qMin(i % 105 + 1, 100),
            lines[i]);
    QVERIFY(device->isIdle());

    sim::SimDevice *quiet = add("COM4:varnel3"_s);
    const sim::SimDevice *clock = add("COM5:varnel3"_s);
    const auto said
        = [](const sim::SimDevice *by) { return int(by->handedOver(LineKind::Measurement) + by->lost()); };
    for (const int silence : {20, 21}) {
        quiet->silence(silence);
        const int before = said(quiet), end = said(clock) + 60;
        QTRY_VERIFY_WITH_TIMEOUT(said(clock) >= end, 60000);
        QCOMPARE(said(quiet) > before, silence == 20);
    }
}

void TestSimulator::programLeavesNothingBehind()
{
    QProcess program;
    program.start(QStringLiteral(VARNELSIM),
        {"--dir", folder->path(), "--device", "COM3:varnel3", "--device", "COM4:tandor"});
    QTRY_VERIFY(QFileInfo(path("COM4")).isSymLink());
    program.write("unplug COM3\nstatus COM4\n");
    QTRY_VERIFY(!QFileInfo(path("COM3")).isSymLink());
    QByteArray said;
    QTRY_VERIFY((said += program.readAllStandardOutput()).contains("COM4 tandor measuring"));
    program.terminate();
    QVERIFY(program.waitForFinished(30000));
    QCOMPARE(program.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
