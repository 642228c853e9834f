// The pieces of a simulated device on their own: its menu, its faults, its description, its replay.
#include "simulator/console.h"
#include "simulator/faults.h"
#include "simulator/frontpanel.h"
#include "simulator/linereplay.h"
#include "simulator/rack.h"

#include <QTemporaryDir>
#include <QtTest>

using sim::Fault;
using sim::FrontPanel;

class TestSimulatorParts : public QObject {
    Q_OBJECT

private slots:
    void panelAnswers_data();
    void panelAnswers();
    void faultsAreRepeatable();
    void faultsSpoilAsNamed_data();
    void faultsSpoilAsNamed();
    void runTogetherLinesSpoilTheNext();
    void descriptions_data();
    void descriptions();
    void replayKeepsLines();
    void consoleRefuses_data();
    void consoleRefuses();
};

void TestSimulatorParts::panelAnswers_data()
{
    using State = FrontPanel::State;
    QTest::addColumn<int>("before");
    QTest::addColumn<QByteArray>("commands"); // one after another
    QTest::addColumn<QByteArray>("replies");
    QTest::addColumn<int>("after");
    const auto row
        = [](const char *name, State before, const char *commands, const char *replies, State after) {
              QTest::newRow(name) << int(before) << QByteArray(commands) << QByteArray(replies) << int(after);
          };
    row("setup", State::Setup, "#TRYB? #MEM? #NRC?", "#TRYB00 #MEM01 #NRC06", State::Setup);
    row("battery", State::Setup, "#MEM- #TRYB?", "#MEM01 #TRYB01", State::Memory);
    row("supply", State::Setup, "#MEM+ #MEM?", "#MEM01 #MEM01", State::Memory);
    row("memory 7", State::Setup, "#MEM07 #MEM? #TRYB?", "#MEM07 #MEM07 #TRYB01", State::Memory);
    row("memory keys", State::Memory, "#MEM+ #MEM+ #MEM-", "#MEM02 #MEM03 #MEM02", State::Memory);
    row("memory limits", State::Memory, "#MEM- #MEM20 #MEM+ #MEM21 #MEM00 #MEM7",
        "#MEM01 #MEM20 #MEM20 #MEM20 #MEM20 #MEM20", State::Memory);
    row("memory elsewhere", State::Cells, "#MEM07 #TRYB?", "#MEM01 #TRYB02", State::Cells);
    row("cells", State::Cells, "#NRC? #NRC+ #NRC- #NRC12 #NRC17", "#NRC06 #NRC07 #NRC06 #NRC12 #NRC12",
        State::Cells);
    row("cells elsewhere", State::Running, "#NRC12 #NRC+", "#NRC06 #NRC06", State::Running);
    row("start", State::Cells, "#START #TRYB?", "#START #TRYB03", State::Running);
    row("start elsewhere", State::Memory, "#START #TRYB?", " #TRYB01", State::Memory);
    row("stop", State::Running, "#STOP #TRYB? #STOP", "#STOP #TRYB04 #STOP", State::Disconnect);
    row("stop elsewhere", State::Cells, "#STOP", "", State::Cells);
    row("no command", State::Running, "#TRYB #FOO STOP #STOPX #BIB_!200 #TIME!05:42:13:15:11:26", "     ",
        State::Running);
}

void TestSimulatorParts::panelAnswers()
{
    QFETCH(int, before);
    QFETCH(QByteArray, commands);
    QFETCH(QByteArray, replies);
    QFETCH(int, after);
    FrontPanel panel;
    panel.setCells(6);
    panel.setState(FrontPanel::State(before));
    QByteArrayList got;
    const QByteArrayList words = commands.split(' ');
    for (const QByteArray &command : words) {
        const QByteArray reply = panel.command(command).reply;
        QVERIFY(reply.isEmpty() || (reply.endsWith("\r\n") && reply.size() < 12));
        got << reply.trimmed();
    }
    QCOMPARE(got.join(' '), replies);
    QCOMPARE(int(panel.state()), after);
    QCOMPARE(panel.clock(), commands.contains("#TIME!") ? QByteArray("05:42:13:15:11:26") : QByteArray());
}

void TestSimulatorParts::faultsAreRepeatable()
{
    const auto course = [](quint32 seed) {
        sim::FaultInjector injector({0.1, 0.1, 0.1, 0.1, 0, 0}, seed);
        QByteArray all;
        for (int i = 0; i < 500; ++i)
            all += injector.pass("#06C05____B1,00036,22490\r\n").bytes;
        return all;
    };
    QCOMPARE(course(4), course(4));
    QVERIFY(course(4) != course(5));
}

void TestSimulatorParts::faultsSpoilAsNamed_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("pattern"); // of the bytes on the wire
    QTest::newRow("cut") << int(Fault::Cut)
                         << QStringLiteral("\\A(?!#12,34,56\r\n)#?1?2?,?3?4?,?5?6?\r\n\\z");
    QTest::newRow("join") << int(Fault::Join) << QStringLiteral("\\A#12,34,56\\z");
    QTest::newRow("fields") << int(Fault::Fields) << QStringLiteral("\\A#12,34(,56,0)?\r\n\\z");
    QTest::newRow("noise") << int(Fault::Noise) << QStringLiteral("\\A(?!#12,34,56\r\n\\z)(?s).{11,15}\\z");
    QTest::newRow("silence") << int(Fault::Silence) << QStringLiteral("\\A#12,34,56\r\n\\z");
    QTest::newRow("hangup") << int(Fault::HangUp) << QStringLiteral("\\A#12,34,56\r\n\\z");
}

void TestSimulatorParts::faultsSpoilAsNamed()
{
    QFETCH(int, fault);
    QFETCH(QString, pattern);
    QCOMPARE(int(sim::findFault(QString::fromLatin1(QTest::currentDataTag()))), fault);
    sim::FaultInjector injector({}, 9);
    const QRegularExpression expected(pattern);
    for (int i = 0; i < 100; ++i) {
        injector.force(Fault(fault));
        const auto hit = injector.pass("#12,34,56\r\n");
        QCOMPARE(int(hit.fault), fault);
        const QString text = QString::fromLatin1(hit.bytes);
        const auto found = expected.match(text); // clazy:exclude=use-static-qregularexpression
        QVERIFY2(found.hasMatch(), hit.bytes.toHex(' '));
        injector.pass("\r\n");
        QCOMPARE(int(injector.pass("#12\r\n").fault), int(Fault::None));
    }
}

void TestSimulatorParts::runTogetherLinesSpoilTheNext()
{
    sim::FaultInjector injector({}, 1);
    injector.force(Fault::Join);
    QVERIFY(injector.pass("#1\r\n").spoiled);
    QVERIFY(injector.pass("#2\r\n").spoiled);
    QVERIFY(!injector.pass("#3\r\n").spoiled);
}

void TestSimulatorParts::descriptions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    for (const char *text : {"COM3", "COM3:", "COM12:varnel3,cells=16,chemistry=lipo,mode=charge,balance",
             "COM3:noise=0.5", "COM3:tandor,cells=12,chemistry=LiFe", "COM3:varnel2plus,mode=format",
             "COM3:varnel3,balance=off,endless=on"})
        QTest::newRow(text) << text << true;
    for (const char *text :
        {"", "ttyS0:varnel3", "COM3/../x:varnel3", "COM3:varnel4", "COM3:varnel3,cells=17", "COM3:cells=x",
            "COM3:chemistry=Li", "COM3:balance=300", "COM3:noise=2", "COM3:endless=perhaps",
            "COM3:tandor,cells=13", "COM3:tandor,chemistry=NiMh", "COM3:varnel2,chemistry=LTO",
            "COM3:varnel2,mode=test", "COM3:varnel2plus,balance", "COM3:replay="})
        QTest::newRow(text) << text << false;
}

void TestSimulatorParts::descriptions()
{
    QFETCH(QString, text);
    QFETCH(bool, good);
    QString error;
    sim::DeviceSettings::parse(text, &error);
    QVERIFY2(error.isEmpty() == good, qPrintable(error));
}

void TestSimulatorParts::replayKeepsLines()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("lines")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#one\r\n\n!two\n# three") > 0);
    file.close();
    sim::LineReplay replay;
    QString error;
    QVERIFY2(replay.load(file.fileName(), &error), qPrintable(error));
    for (const char *line : {"#one\r\n", "!two\r\n", "# three\r\n"})
        QCOMPARE(replay.next(), QByteArray(line));
    QVERIFY(replay.atEnd());
    QVERIFY(!replay.load(folder.filePath(QStringLiteral("none")), &error) && !error.isEmpty());
}

void TestSimulatorParts::consoleRefuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("silent");
    for (const char *line :
        {"unplug COM7", "plug COM7", "fault COM7 cut", "fault all noise=0.1", "end COM7 S", "speed 5", ""})
        QTest::newRow(line) << line << true;
    for (const char *line :
        {"unplug COM8", "jump COM7", "end COM7 X", "fault COM7 smoke", "speed fast", "status", "help"})
        QTest::newRow(line) << line << false;
}

void TestSimulatorParts::consoleRefuses()
{
    QFETCH(QString, line);
    QFETCH(bool, silent);
    QTemporaryDir folder;
    sim::RunSettings run;
    run.folder = folder.path();
    sim::Rack rack(run);
    QString error;
    QVERIFY2(rack.add(QStringLiteral("COM7:varnel3"), &error), qPrintable(error));
    sim::Console console(&rack);
    QCOMPARE(console.execute(line).isEmpty(), silent);
}

QTEST_GUILESS_MAIN(TestSimulatorParts)
#include "tst_simulatorparts.moc"
