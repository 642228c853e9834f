#include "link/linedispatcher.h"

#include "link/clockcommand.h"
#include "link/lineframer.h"
#include "settings/varnelsettings.h"
#include "support/columns.h"
#include "support/fakelink.h"
#include "support/fakeshell.h"
#include "support/limits.h"
#include "support/literal.h"
#include "support/shellfixture.h"

#include <QtTest>

namespace {

using Story = QByteArrayList;
using Recordings = QVector<Recording>;

// Steps of a story that are no lines; a number is so many seconds of silence.
constexpr char shutWindow[] = "shut";
constexpr char endShot[] = "shot";

constexpr char noCells[] = "#00C05";
constexpr char oneCell[] = "#01C05";
constexpr char discharge[] = "#06D05";
constexpr char fiveCells[] = "#05C05";
constexpr char lithiumIron[] = "#06C07";

QByteArray ending(char letter, int time = 6)
{
    return varnel3Line(time, "#06C05", letter);
}

QByteArrayList linesOf(LineFramer *framer, const QByteArray &bytes)
{
    framer->feed(bytes);
    QByteArrayList lines;
    QByteArray line;
    while (framer->next(&line))
        lines.append(line);
    return lines;
}

} // namespace

/// Bytes of a device to lines, lines to recordings.
class LinesTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        VarnelSettings().clear();
        dispatcher.reset();
        shell = std::make_unique<FakeShell>();
        device = std::make_unique<FakeLink>();
        dispatcher = std::make_unique<LineDispatcher>(device.get(), shell.get());
    }

    void frames_data()
    {
        const auto row = columns<QByteArray, QByteArrayList>({"bytes", "lines"});
        row("empty lines", "#123\n\n\r\n", {"#123", "", ""});
        row("rest of a line heard from its middle", "4,0\r\n#1234\n", {"4,0", "#1234"});
        row("line end first of all", "\n#1234\n", {"", "#1234"});
        row("what stands before the hash stays", "#0000\nxyz#TEST123456\r\n", {"#0000", "xyz#TEST123456"});
        row("hash does not end its line", "#1234#56\n78\n", {"#1234#561078"});

        row("line end as second byte", "#\x01\nAB\n", {"#0110AB"});
        row("line end as first byte", "#\nAB\n\n", {"#10AB", ""});
        row("line end as third byte", "#AB\nC\n", {"#AB10C"});
        row("line end as fourth byte", "#ABC\n", {"#ABC"});
        row("NUL as value", QByteArray("#\0\0\0\0A\n", 7), {"#000000A"});
        row("values above 127 are negative", "#\xC8\xFB\x80\xC8\n", {"#-56-5-128\xC8"});
        row("value 31, then printable, then deleted", "#\x1F \x7F\x41\n", {"#31 A"});
        row("second hash starts the count anew", "#AB#\x05\x43\n\n", {"#AB#05C10"});
        row("count goes on past the line end", "#AB\n\n\x05\x43\n", {"#AB10", "C"});

        QByteArray others, printable;
        for (int code = 0; code < 256; ++code) {
            if (code != '#' && code != '\n')
                others.append(char(code));
            if (code >= 0x20 && code != '#' && (code < 0x7F || (code > 0x9F && code != 0xAD)))
                printable.append(char(code));
        }
        row("every other byte", "#123" + others + '\n', {"#123" + printable});
        row("four kilobytes", '#' + QByteArray(4095, 'x') + '\n', {'#' + QByteArray(4095, 'x')});
    }

    // However the bytes arrive.
    void frames()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArrayList, lines);
        for (int piece : {1, 2, 3, 5, 7, bytes.size()}) {
            LineFramer framer;
            QByteArrayList found;
            for (int at = 0; at < bytes.size(); at += piece)
                found += linesOf(&framer, bytes.mid(at, piece));
            QCOMPARE(found, lines);
        }
    }

    // A reader takes bytes in, and stops, while it is handling a line.
    void takesLinesLaterThanFed()
    {
        LineFramer framer;
        QByteArray line;
        framer.feed("#first\n#sec");
        QVERIFY(framer.next(&line) && line == "#first");
        QCOMPARE(linesOf(&framer, "ond\n#third\n#4"), QByteArrayList({"#second", "#third"}));
        QCOMPARE(line, QByteArray("#first"));
        framer.feed("7\n#8");
        framer.clear();
        QVERIFY(!framer.next(&line));
        QCOMPARE(linesOf(&framer, "\n789\n"), QByteArrayList({"", "789"}));
    }

    // Any step over the whole unfinished line for each piece would take minutes.
    void streamsWithoutLineEndShareTheirRoom()
    {
        const QByteArray piece(64 * 1024, 'x');
        LineFramer late;
        QByteArray line;
        {
            LineFramer framers[2];
            for (int size = 0; size < LineFramer::maxHeld; size += piece.size()) {
                for (LineFramer &framer : framers)
                    QCOMPARE(linesOf(&framer, piece), QByteArrayList());
            }
            const QByteArray own(LineFramer::ownRoom, 'y');
            QCOMPARE(linesOf(&late, own + "more\n"), QByteArrayList({own})); // the third still has its lines
            QCOMPARE(linesOf(&framers[0], "\n#2345678901\n").constLast(), QByteArray("#2345678901"));
            framers[1].feed("\n");
            QVERIFY(framers[1].next(&line));
            QCOMPARE(line.size(), LineFramer::maxHeld / 2);
            framers[0].feed(piece);
            QVERIFY(!framers[0].next(&line));
        }
        late.feed(QByteArray(LineFramer::maxHeld + 1, 'z') + '\n'); // all room is free again
        QVERIFY(late.next(&line));
        QCOMPARE(line.size(), LineFramer::maxHeld);
        for (const char *next : {"1\n", "2\n"}) {
            late.feed(next);
            QVERIFY(late.next(&line));
        }
        QCOMPARE(line.capacity(), 512); // nothing is kept of such lines
    }

    void sortsLinesIntoRecordings_data()
    {
        const auto row = columns<Story, Recordings>({"story", "recordings"});
        const auto at = [](int time) { return varnel3Line(time); };

        row("one process", {at(5), at(6), at(6), at(8)}, {{"5", "6", "6", "8"}});
        row("20 s of silence", {at(5), "20", at(26)}, {{"5", "26"}});
        row("21 s of silence", {at(5), "21", at(27), at(28)}, {{"5", "end"}, {"27", "28"}});
        row("lines break a silence", {at(5), "15", at(20), "15", at(35)}, {{"5", "20", "35"}});
        row("only good lines break a silence", {at(5), "15", "#06C05_____1,1,2,3", "6", at(27)},
            {{"5", "end"}, {"27"}});
        row("time runs backwards", {at(5), at(4), at(5)}, {{"5", "4", "end"}, {"5"}});
        row("time 0 starts one, and ends it",
            {varnel3Line(5, oneCell), varnel3Line(0, oneCell), varnel3Line(1, oneCell)},
            {{"5", "end"}, {"0", "end"}, {"1"}});
        row("time 0 without cells ends one only",
            {varnel3Line(5, noCells), varnel3Line(0, noCells), varnel3Line(1, noCells)},
            {{"5", "0", "end"}, {"1"}});
        row("another mode", {at(5), varnel3Line(6, discharge), varnel3Line(7, discharge)},
            {{"5", "6", "end"}, {"7"}});
        row("another cell count", {at(5), varnel3Line(6, fiveCells), at(7)}, {{"5", "6", "end"}, {"7"}});
        row("another chemistry", {at(5), varnel3Line(6, lithiumIron), at(7)}, {{"5", "6", "end"}, {"7"}});

        row("the balancer's clock stands still", {tandorLine(), tandorLine(), tandorLine()},
            {{"0", "0", "0"}});
        row("balancer: another cell count", {tandorLine(6), tandorLine(5), tandorLine(5)},
            {{"0", "0", "end"}, {"0"}});
        // It sends no time: where a charger with the same pack spoke before, the charger's stays.
        row("balancer after a charger", {at(5), tandorLine(), tandorLine()}, {{"5", "5", "5"}});
        row("balancer after 21 s of silence", {tandorLine(), "21", tandorLine()}, {{"0", "end"}, {"0"}});

        row("bad lines are dropped",
            {"", "noise without hash", "#06C05", at(5), at(6) + ",1", "#06X05" + at(6).mid(6)}, {{"5"}});
        // What a bad line left behind is what the next one is compared with.
        row("after a bad mode nothing is compared",
            {at(5), "#06X05" + at(6).mid(6), varnel3Line(4, fiveCells)}, {{"5", "4"}});
        row("after a bad chemistry all is changed", {at(5), "#06C99" + at(6).mid(6), at(7), at(8)},
            {{"5", "7", "end"}, {"8"}});
        row("'!' follows its record", {resistanceLine(), at(5), resistanceLine(), at(6)}, {{"5", "!", "6"}});
        row("16 cells and more",
            {varnel3Line(5, "#16C05"), varnel3Line(6, "#99C05"), varnel3Line(7, "#-1C05")},
            {{"5", "6", "end"}, {"7"}});

        row("lines follow the end letter until the shot", {at(5), ending('E'), at(7), endShot, at(8)},
            {{"5", "6", "7", "end"}, {"8"}});
        row("an end letter hides a change", {at(5), varnel3Line(4, discharge, 'M'), endShot},
            {{"5", "4", "end"}});
        row("after the shot nothing is compared",
            {ending('E'), endShot, varnel3Line(7, discharge), varnel3Line(8, discharge)},
            {{"6", "end"}, {"7", "8"}});
        row("a late shot ends what began meanwhile", {ending('S'), at(2), at(3), endShot, at(4)},
            {{"6", "2", "end"}, {"3", "end"}, {"4"}});
    }

    void sortsLinesIntoRecordings()
    {
        QFETCH(Story, story);
        QFETCH(Recordings, recordings);
        tell(story);
        QCOMPARE(shell->windowRecordings(), recordings);
        QCOMPARE(shell->logs, recordings);
        QCOMPARE(shell->calls.count("started"), recordings.size());
    }

    void announcesEnds_data()
    {
        const auto row = columns<Story, QStringList>({"story", "calls"});
        const QByteArray line = varnel3Line(5);
        row("none", {line, "noise", resistanceLine(), "#06C05", varnel3Line(6), ending('e', 7)}, {"started"});
        row("completed", {ending('E'), endShot}, {"armed", "announced 6 0", "started", "ended 2"});
        row("aborted", {ending('M'), endShot}, {"armed", "announced 6 0", "started", "ended 1"});
        row("error", {ending('S'), endShot}, {"armed", "announced 6 0", "started", "ended 0"});
        row("the newest letter counts, a shot for each", {ending('S'), ending('E', 7), endShot, endShot},
            {"armed", "armed", "announced 7 0", "announced 7 0", "started", "ended 2", "ended 2"});
        row("by the line of the letter", {line, ending('S'), varnel3Line(7), endShot},
            {"armed", "announced 6 0", "started", "ended 0"});
        row("window closed", {line, shutWindow, ending('S'), endShot},
            {"unwatched COM7", "armed", "announced 6 -1", "started", "ended 0"});
        row("next recording on", {ending('S'), varnel3Line(2), varnel3Line(3), endShot},
            {"armed", "announced 6 0", "started", "started", "ended 0"});
    }

    void announcesEnds()
    {
        QFETCH(Story, story);
        tell(story);
        QTEST(shell->calls, "calls");
        QCOMPARE(dispatcher->isNewProcess(), story.contains(endShot));
    }

    void keepsWhatTheClosedWindowMissed()
    {
        tell({varnel3Line(5), shutWindow, resistanceLine(), "!1,2", varnel3Line(6), varnel3Line(7),
            varnel3Line(0), varnel3Line(1), shutWindow, varnel3Line(2)});
        QCOMPARE(shell->windowRecordings(), Recordings({{"5"}, {"0", "end"}, {"1"}}));
        QCOMPARE(shell->logs, Recordings({{"5", "!", "6", "7", "end"}, {"0", "end"}, {"1", "2"}}));
        shell->calls.removeAll("started");
        QCOMPARE(shell->calls, QStringList({"unwatched COM7", "unwatched COM7"}));
        QCOMPARE(shell->windows[2]->portName, "COM7"_s);
        QCOMPARE(shell->windows[2]->link, device.get());
    }

    void setsTheClockOncePerPort()
    {
        QCOMPARE(clockCommand(QDateTime({2026, 11, 15}, {13, 42, 5})), "#TIME!05:42:13:15:11:26\r\n"_s);
        const Story process = {varnel3Line(5), ending('E'), endShot};
        tell(process);
        QVERIFY(device->commands.isEmpty() && shell->claimedClocks.isEmpty());
        VarnelSettings().setSendTime(true);
        tell({varnel3Line(5), varnel3Line(6)});
        QCOMPARE(shell->claimedClocks, QStringList("COM7 start"));
        tell(Story{ending('E', 7), endShot} + process);
        QCOMPARE(shell->claimedClocks, QStringList({"COM7 start", "COM7 end"}));
        QCOMPARE(device->commands.size(), 2);
        QVERIFY(device->commands[0].startsWith("#TIME!"_s) && device->commands[1].startsWith("#TIME!"_s));
    }

    void lineThatLacksMemoryIsLeftOut()
    {
        const Story endless{varnel3Line(6).replace(",6,", ',' + QByteArray(64 << 20, 'x') + ',')};
        tell({varnel3Line(5)});
        {
            const WritableMemoryLimit refused(16 << 20);
            tell(endless);
        }
        tell({varnel3Line(6)});
        QCOMPARE(shell->logs, Recordings({{"5", "6"}}));
        QCOMPARE(shell->calls.value(1), "status 5000 Not enough memory: a line of COM7 is left out."_s);
    }

private:
    void tell(const Story &story)
    {
        for (const QByteArray &step : story) {
            bool isSilence = false;
            const int seconds = step.toInt(&isSilence);
            for (int i = 0; i < seconds; ++i)
                dispatcher->tick();
            if (step == shutWindow)
                dispatcher->forgetWindow();
            else if (step == endShot)
                dispatcher->endProcess();
            else if (!isSilence && dispatcher->processLine(step))
                shell->calls.append("armed");
        }
        QCoreApplication::processEvents();
    }

    ShellFixture fixture;
    std::unique_ptr<FakeShell> shell;
    std::unique_ptr<FakeLink> device;
    std::unique_ptr<LineDispatcher> dispatcher;
};

QTEST_GUILESS_MAIN(LinesTest)
#include "tst_lines.moc"
