#include "link/lineframer.h"

#include "support/columns.h"

#include <QByteArrayList>

namespace {

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

class LineFramerTest : public QObject {
    Q_OBJECT

private slots:
    void frames_data();
    void frames();
    void takesLinesLaterThanFed();
    void streamsWithoutLineEndShareTheirRoom();
};

void LineFramerTest::frames_data()
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
void LineFramerTest::frames()
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
void LineFramerTest::takesLinesLaterThanFed()
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
void LineFramerTest::streamsWithoutLineEndShareTheirRoom()
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
}

QTEST_APPLESS_MAIN(LineFramerTest)
#include "tst_lineframer.moc"
