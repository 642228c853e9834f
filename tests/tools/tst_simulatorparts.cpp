// The pieces of a simulated device on their own: its menu, its faults, its description, its replay.
#include "simulator/console.h"
#include "simulator/faults.h"
#include "simulator/frontpanel.h"
#include "simulator/linereplay.h"
#include "simulator/rack.h"
#include "support/columns.h"

#include <QTemporaryDir>
#include <QtTest>

using sim::Fault;
using sim::FrontPanel;

class TestSimulatorParts : public QObject {
    Q_OBJECT

private slots:
    void panelAnswers_data();
    void panelAnswers();
    void faultsSpoilAsNamed_data();
    void faultsSpoilAsNamed();
    void descriptions();
    void replayKeepsLines();
    void consoleRefuses();
};

void TestSimulatorParts::panelAnswers_data()
{
    using State = FrontPanel::State;
    // commands: one after another
    columns<int, QByteArray, QByteArray, int>({"before", "commands", "replies", "after"});
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

void TestSimulatorParts::faultsSpoilAsNamed_data()
{
    // pattern: of the bytes on the wire
    columns<int, QString>({"fault", "pattern"});
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
    const QRegularExpression expected(pattern); // another one in each row
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

void TestSimulatorParts::descriptions()
{
    const auto isGood = [](const char *text) {
        QString error;
        sim::DeviceSettings::parse(QLatin1String(text), &error);
        return error.isEmpty();
    };
    for (const char *text : {"COM3", "COM3:", "COM12:varnel3,cells=16,chemistry=lipo,mode=charge,balance",
             "COM3:noise=0.5", "COM3:tandor,cells=12,chemistry=LiFe", "COM3:varnel2plus,mode=format",
             "COM3:varnel3,balance=off,endless=on"})
        QVERIFY2(isGood(text), text);
    for (const char *text :
        {"", "ttyS0:varnel3", "COM3/../x:varnel3", "COM3:varnel4", "COM3:varnel3,cells=17", "COM3:cells=x",
            "COM3:chemistry=Li", "COM3:balance=300", "COM3:noise=2", "COM3:endless=perhaps",
            "COM3:tandor,cells=13", "COM3:tandor,chemistry=NiMh", "COM3:varnel2,chemistry=LTO",
            "COM3:varnel2,mode=test", "COM3:varnel2plus,balance", "COM3:replay="})
        QVERIFY2(!isGood(text), text);
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

void TestSimulatorParts::consoleRefuses()
{
    QTemporaryDir folder;
    sim::RunSettings run;
    run.folder = folder.path();
    sim::Rack rack(run);
    QString error;
    QVERIFY2(rack.add(QStringLiteral("COM7:varnel3"), &error), qPrintable(error));
    sim::Console console(&rack);
    const auto answer = [&console](const char *line) { return console.execute(QLatin1String(line)); };
    for (const char *line :
        {"unplug COM7", "plug COM7", "fault COM7 cut", "fault all noise=0.1", "end COM7 S", "speed 5", ""})
        QVERIFY2(answer(line).isEmpty(), line);
    for (const char *line :
        {"unplug COM8", "jump COM7", "end COM7 X", "fault COM7 smoke", "speed fast", "status", "help"})
        QVERIFY2(!answer(line).isEmpty(), line);
}

QTEST_GUILESS_MAIN(TestSimulatorParts)
#include "tst_simulatorparts.moc"
