#include "link/linedispatcher.h"

#include "link/clockcommand.h"
#include "settings/varnelsettings.h"
#include "support/columns.h"
#include "support/fakelink.h"
#include "support/fakeshell.h"
#include "support/limits.h"
#include "support/shellfixture.h"

#include <QtTest>

namespace {

// Steps of a story that are no lines.
const auto shutWindow = QStringLiteral("shut");
const auto endShot = QStringLiteral("shot");
QString silence(int seconds)
{
    return QString::number(seconds);
}

const auto noCells = QStringLiteral("#00C05");
const auto discharge = QStringLiteral("#06D05");
const auto fiveCells = QStringLiteral("#05C05");
const auto lithiumIron = QStringLiteral("#06C07");

} // namespace

class LineDispatcherTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void sortsLinesIntoRecordings_data();
    void sortsLinesIntoRecordings();
    void announcesStartsAndEnds_data();
    void announcesStartsAndEnds();
    void saysWhatEnded_data();
    void saysWhatEnded();
    void keepsWhatTheClosedWindowMissed();
    void lineThatLacksMemoryIsLeftOut();
    void carriesOverWhatADialectDoesNotSend();
    void setsTheClockOncePerPort();

private:
    void tell(const QStringList &story);

    ShellFixture fixture;
    std::unique_ptr<FakeShell> shell;
    std::unique_ptr<FakeLink> device;
    std::unique_ptr<LineDispatcher> dispatcher;
};

void LineDispatcherTest::init()
{
    VarnelSettings().clear();
    dispatcher.reset();
    shell = std::make_unique<FakeShell>();
    device = std::make_unique<FakeLink>();
    dispatcher = std::make_unique<LineDispatcher>(device.get(), shell.get());
}

void LineDispatcherTest::tell(const QStringList &story)
{
    for (const QString &step : story) {
        bool isSilence = false;
        const int seconds = step.toInt(&isSilence);
        if (isSilence) {
            for (int i = 0; i < seconds; ++i)
                dispatcher->tick();
        } else if (step == shutWindow) {
            dispatcher->forgetWindow();
        } else if (step == endShot) {
            dispatcher->endProcess();
        } else if (dispatcher->processLine(step)) {
            shell->calls.append(QStringLiteral("armed"));
        }
    }
    QCoreApplication::processEvents();
}

void LineDispatcherTest::sortsLinesIntoRecordings_data()
{
    columns<QStringList, QVector<Recording>>({"story", "recordings"});
    const auto row = [](const char *name, const QStringList &story, const QVector<Recording> &recordings) {
        QTest::newRow(name) << story << recordings;
    };
    const auto at = [](int time) { return varnel3Line(time); };

    row("one process", {at(5), at(6), at(6), at(8)}, {{"5", "6", "6", "8"}});
    row("20 s of silence", {at(5), silence(20), at(26)}, {{"5", "26"}});
    row("21 s of silence", {at(5), silence(21), at(27), at(28)}, {{"5", "end"}, {"27", "28"}});
    row("lines break a silence", {at(5), silence(15), at(20), silence(15), at(35)}, {{"5", "20", "35"}});
    row("only good lines break a silence", {at(5), silence(15), "#06C05_____1,1,2,3", silence(6), at(27)},
        {{"5", "end"}, {"27"}});
    row("time runs backwards", {at(5), at(4), at(5)}, {{"5", "4", "end"}, {"5"}});
    row("time 0 starts one, and ends it", {at(5), at(0), at(1), at(2)},
        {{"5", "end"}, {"0", "end"}, {"1", "2"}});
    row("time 0 at first", {at(0), at(1)}, {{"0", "1"}});
    row("time 0 without cells ends one only",
        {varnel3Line(5, noCells), varnel3Line(0, noCells), varnel3Line(1, noCells)},
        {{"5", "0", "end"}, {"1"}});
    row("another mode", {at(5), varnel3Line(6, discharge), varnel3Line(7, discharge)},
        {{"5", "6", "end"}, {"7"}});
    row("another cell count", {at(5), varnel3Line(6, fiveCells), at(7)}, {{"5", "6", "end"}, {"7"}});
    row("another chemistry", {at(5), varnel3Line(6, lithiumIron), at(7)}, {{"5", "6", "end"}, {"7"}});

    row("the balancer's clock stands still", {tandorLine(), tandorLine(), tandorLine()}, {{"0", "0", "0"}});
    row("balancer: another cell count", {tandorLine(6), tandorLine(5), tandorLine(5)},
        {{"0", "0", "end"}, {"0"}});
    row("balancer: another chemistry", {tandorLine(6), tandorLine(6, "05"), tandorLine(6, "05")},
        {{"0", "0", "end"}, {"0"}});
    row("balancer after 21 s of silence", {tandorLine(), silence(21), tandorLine()}, {{"0", "end"}, {"0"}});

    row("bad lines are dropped",
        {"", "noise without hash", "#06C05", at(5), at(6) + ",1", "#06X05" + at(6).mid(6)}, {{"5"}});
    // What a bad line left behind is what the next one is compared with.
    row("after a bad mode nothing is compared", {at(5), "#06X05" + at(6).mid(6), varnel3Line(4, fiveCells)},
        {{"5", "4"}});
    row("after a bad chemistry all is changed", {at(5), "#06C99" + at(6).mid(6), at(7), at(8)},
        {{"5", "7", "end"}, {"8"}});
    row("'!' follows its record", {resistanceLine(), at(5), resistanceLine(), at(6)}, {{"5", "!", "6"}});
    row("16 cells and more", {varnel3Line(5, "#16C05"), varnel3Line(6, "#99C05"), varnel3Line(7, "#-1C05")},
        {{"5", "6", "end"}, {"7"}});

    row("lines follow the end letter until the shot",
        {at(5), varnel3Line(6, "#06C05", 'E'), at(7), endShot, at(8)}, {{"5", "6", "7", "end"}, {"8"}});
    row("an end letter hides a change", {at(5), varnel3Line(4, discharge, 'M'), endShot},
        {{"5", "4", "end"}});
    row("a late shot ends what began meanwhile",
        {varnel3Line(6, "#06C05", 'S'), at(2), at(3), endShot, at(4)},
        {{"6", "2", "end"}, {"3", "end"}, {"4"}});
}

void LineDispatcherTest::sortsLinesIntoRecordings()
{
    QFETCH(QStringList, story);
    QFETCH(QVector<Recording>, recordings);
    tell(story);
    QCOMPARE(shell->windowRecordings(), recordings);
    QCOMPARE(shell->logs, recordings);
}

void LineDispatcherTest::announcesStartsAndEnds_data()
{
    columns<QStringList, QStringList>({"story", "calls"});
    const auto ending = [](char letter) { return varnel3Line(6, QStringLiteral("#06C05"), letter); };
    const QString end = ending('E');

    QTest::newRow("start") << QStringList({varnel3Line(5), varnel3Line(6)}) << QStringList({"started"});
    QTest::newRow("completed") << QStringList({end, endShot}) << QStringList({"armed", "started", "ended 2"});
    QTest::newRow("aborted") << QStringList({ending('M'), endShot})
                             << QStringList({"armed", "started", "ended 1"});
    QTest::newRow("error") << QStringList({ending('S'), endShot})
                           << QStringList({"armed", "started", "ended 0"});
    QTest::newRow("another letter") << QStringList({ending('e')}) << QStringList({"started"});
    QTest::newRow("three letters") << QStringList({end, end, end, endShot, endShot,
        endShot}) << QStringList({"armed", "armed", "armed", "started", "ended 2", "ended 2", "ended 2"});
    QTest::newRow("the newest letter counts")
        << QStringList({ending('S'), end, endShot, endShot})
        << QStringList({"armed", "armed", "started", "ended 2", "ended 2"});
}

void LineDispatcherTest::announcesStartsAndEnds()
{
    QFETCH(QStringList, story);
    QFETCH(QStringList, calls);
    tell(story);
    QCOMPARE(shell->calls, calls);
    QVERIFY(dispatcher->isNewProcess() == story.contains(endShot));
}

void LineDispatcherTest::saysWhatEnded_data()
{
    columns<QStringList, QStringList>({"story", "ends"});
    const QString failed = varnel3Line(6, QStringLiteral("#06C05"), 'S');
    QTest::newRow("by the line of the letter")
        << QStringList({varnel3Line(5), failed, varnel3Line(7), endShot}) << QStringList("6 0");
    QTest::newRow("window closed") << QStringList({varnel3Line(5), shutWindow, failed, endShot})
                                   << QStringList("6 -1");
    QTest::newRow("next recording on")
        << QStringList({failed, varnel3Line(2), varnel3Line(3), endShot}) << QStringList("6 0");
}

void LineDispatcherTest::saysWhatEnded()
{
    QFETCH(QStringList, story);
    tell(story);
    QTEST(shell->ends, "ends");
}

void LineDispatcherTest::keepsWhatTheClosedWindowMissed()
{
    tell({varnel3Line(5), shutWindow, resistanceLine(), "!1,2", varnel3Line(6), varnel3Line(7),
        varnel3Line(0), varnel3Line(1), shutWindow, varnel3Line(2)});
    QCOMPARE(shell->windowRecordings(), QVector<Recording>({{"5"}, {"0", "end"}, {"1"}}));
    QCOMPARE(shell->logs, QVector<Recording>({{"5", "!", "6", "7", "end"}, {"0", "end"}, {"1", "2"}}));
    shell->calls.removeAll(QStringLiteral("started"));
    QCOMPARE(shell->calls, QStringList({"unwatched COM7", "unwatched COM7"}));
}

void LineDispatcherTest::lineThatLacksMemoryIsLeftOut()
{
    constexpr int megabyte = 1 << 20;
    QString endless = varnel3Line(6);
    endless.replace(QLatin1String("24000"), QString(64 * megabyte, QLatin1Char('1')));
    {
        const WritableMemoryLimit limit(32 * megabyte);
        tell({varnel3Line(5), endless, varnel3Line(7)});
    }
    QCOMPARE(shell->logs, QVector<Recording>({{"5", "7"}}));
    QVERIFY2(
        shell->calls.contains(QStringLiteral("status 5000 Not enough memory: a line of COM7 is left out.")),
        qPrintable(shell->calls.join(QLatin1Char('\n'))));
}

// A balancer sends no time: where a charger with the same pack spoke before, the charger's stays.
void LineDispatcherTest::carriesOverWhatADialectDoesNotSend()
{
    tell({varnel3Line(5), tandorLine(), tandorLine()});
    QCOMPARE(shell->windowRecordings(), QVector<Recording>({{"5", "5", "5"}}));
}

void LineDispatcherTest::setsTheClockOncePerPort()
{
    const QStringList twoProcesses = {varnel3Line(5), varnel3Line(6, "#06C05", 'E'), endShot, varnel3Line(0),
        varnel3Line(1, "#06C05", 'E'), endShot};
    tell(twoProcesses);
    QCOMPARE(device->commands, QStringList());
    QVERIFY(shell->claimedClocks.isEmpty());

    VarnelSettings().setSendTime(true);
    tell({varnel3Line(5), varnel3Line(6)});
    QCOMPARE(device->commands.size(), 1);
    tell({varnel3Line(7, "#06C05", 'E'), endShot});
    QCOMPARE(device->commands.size(), 2);
    tell(twoProcesses);
    QCOMPARE(device->commands.size(), 2);
    QVERIFY(device->commands.last().startsWith(QLatin1String("#TIME!")));
    QCOMPARE(shell->claimedClocks, QStringList({"COM7 start", "COM7 end"}));
    QCOMPARE(
        clockCommand(QDateTime({2026, 11, 15}, {13, 42, 5})), QStringLiteral("#TIME!05:42:13:15:11:26\r\n"));
}

QTEST_GUILESS_MAIN(LineDispatcherTest)
#include "tst_linedispatcher.moc"
