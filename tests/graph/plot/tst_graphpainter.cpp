#include "graph/plot/graphpainter.h"
#include "graph/plot/kepttexts.h"
#include "support/columns.h"
#include "support/graphcase.h"
#include "support/paintlog.h"
#include "support/pixels.h"

#include <QImage>
#include <QPicture>
#include <QtTest>

#include <algorithm>

namespace {

/// What `script` paints, in a language of one command a line or between "; "; px, colours by name:
///
///     pen COLOUR [dot|dash]           font PIXELS [bold]
///     x X... : TOP BOTTOM             y Y... : LEFT RIGHT             lines
///     column X Y...|TEXT|TEXT...      row Y X...|TEXT|TEXT...         texts from a baseline
///     left X Y W H TEXT               right ..., mid ...              a text in a rectangle
///     fill X Y W H COLOUR             box X Y W H COLOUR              a rectangle, a box with an outline
///     curve X Y X Y COUNT WIDTH       of so many points, its first and its last, in the device's pixels
QStringList paintedBy(const QString &script, double scale)
{
    PaintLog log;
    QPainter painter(&log);
    painter.scale(scale, scale);
    static const QRegularExpression ends("\n|; ");
    const QStringList commands = script.split(ends, Qt::SkipEmptyParts);
    for (const QString &command : commands) {
        const QStringList texts = command.split('|');
        const QStringList words = texts[0].split(' ');
        const QString what = words[0];
        const auto number = [&](int i) { return words.value(i).toInt(); };
        const QRect rect(number(1), number(2), number(3), number(4));
        if (what == "pen") {
            const QHash<QString, Qt::PenStyle> styles{{"dot", Qt::DotLine}, {"dash", Qt::DashLine}};
            painter.setPen(QPen(QColor(words[1]), 1, styles.value(words.value(2), Qt::SolidLine)));
        } else if (what == "font") {
            QFont font("Arial");
            font.setPixelSize(number(1));
            font.setBold(words.size() > 2);
            painter.setFont(font);
        } else if (what == "x" || what == "y") {
            const int from = number(words.size() - 2);
            const int to = number(words.size() - 1);
            for (int i = 1, at = number(1); words[i] != ":"; at = number(++i))
                painter.drawLine(what == "x" ? QLine(at, from, at, to) : QLine(from, at, to, at));
        } else if (what == "column" || what == "row") {
            for (int i = 1; i < texts.size(); ++i) {
                const QPoint start(number(1), number(i + 1));
                painter.drawText(what == "row" ? QPoint(start.y(), start.x()) : start, texts[i]);
            }
        } else if (what == "fill") {
            painter.fillRect(rect, QColor(words[5]));
        } else if (what == "box") {
            painter.setBrush(QColor(words[5]));
            painter.drawRect(rect);
        } else if (what == "curve") {
            QPolygonF points(number(5));
            points.first() = QPointF(number(1), number(2)) / scale;
            points.last() = QPointF(number(3), number(4)) / scale;
            painter.setPen(QPen(painter.pen().color(), number(6) / scale));
            painter.drawPolyline(points);
        } else {
            const QHash<QString, int> alignments{{"left", Qt::AlignLeft}, {"right", Qt::AlignRight}};
            painter.drawText(
                rect, alignments.value(what, Qt::AlignHCenter) | Qt::AlignVCenter, command.section(' ', 5));
        }
    }
    painter.end();
    return log.lines();
}

} // namespace

class TestGraphPainter : public QObject {
    Q_OBJECT

private slots:
    void paints_data();
    void paints();
    void keptTextsAreThePainters();
    void strokesOnAScreen();

private:
    GraphPainter m_used;
};

/// Letter by letter where the painter has them, laid out just now and before.
void TestGraphPainter::keptTextsAreThePainters()
{
    KeptTexts kept;
    for (int round = 0; round < 3; ++round) {
        for (const char *text :
            {"", " ", "00:11:47", "  0,0", "-12,50 V ", "1", "Charge  3xLiPo", "m\u03a9", "11.111"}) {
            QImage ours(300, 200, QImage::Format_RGB32);
            QImage painters = ours;
            for (QImage *image : {&ours, &painters}) {
                image->fill(Qt::darkGreen);
                QPainter painter(image);
                painter.translate(round == 1 ? 0.25 : 2, 3);
                for (int way = 0; way < 54; ++way) {
                    QFont font("Arial");
                    font.setPixelSize(8 + way % 9);
                    font.setBold(way % 2 == 1);
                    painter.setFont(font);
                    painter.setPen(way % 2 == 1 ? Qt::yellow : Qt::white);
                    const int across[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
                    const int down[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
                    const int flags = across[way % 3] | down[way / 3 % 3] | (way < 27 ? Qt::TextDontClip : 0);
                    const QPoint place(way % 6 * 49, way / 6 * 22);
                    const QRect rect(place, QSize(20 + way, 9 + way % 12));
                    if (image == &ours) {
                        kept.draw(&painter, rect, flags, text);
                        kept.draw(&painter, place, text);
                    } else {
                        painter.drawText(rect, flags, text);
                        painter.drawText(place, text);
                    }
                }
            }
            QVERIFY2(ours == painters, text);
        }
    }
}

/// Axes are lines of whole pixels on a screen of one and a half, too; dashes follow the letters.
void TestGraphPainter::strokesOnAScreen()
{
    QImage image(750, 450, QImage::Format_RGB32);
    image.setDevicePixelRatio(1.5);
    QPainter painter(&image);
    m_used.paint(&painter, GraphCase("20 distinct").request());
    QCOMPARE(countOf(image, QRect(0, 75, 750, 1), QColor(170, 170, 170)), 2);
    QCOMPARE(countOf(image, QRect(60, 349, 150, 1), QColor(255, 80, 80)), 87);
}

/// Each stroke, rectangle and text of a graph that matches `part`, as the commands of paintedBy() in any
/// order.
void TestGraphPainter::paints_data()
{
    const auto add = columnsOf<QString, QString, QString>({"graph", "part", "commands"});
    add("20", ".", R"(
fill 0 0 500 300 #000000; fill 1 278 10 21 #ffff00; pen #000000; font 13; mid 1 278 10 21 3
pen #ffffff; font 12; mid 0 0 500 21 Charge  3xLiPo  11,59 V   2,50 A  25,3 °C  1,900 Ah  00:19:00
font 11; row 293 20 110 200 290 380|00:00:00|00:04:45|00:09:30|00:14:15|00:19:00
pen #aaaaaa; y 275 : 40 400; x 40 130 220 310 400 : 275 278; x 38 402 : 22 139; x 38 402 : 154 271
pen #505050 dot; x 40 130 220 310 400 : 22 271; y 22 61 100 139 154 193 232 271 : 40 400
pen #00ff00; curve 40 118 400 43 20 1; column 10 45|V; fill 443 28 8 3 #00ff00; left 453 22 45 13 Voltage
font 10; column 10 143 104 65 26|11,35|11,45|11,55|11,65
pen #ffff00; curve 40 139 400 33 20 1; column 407 45|mV/min; fill 443 58 8 3 #ffff00
font 11; column 407 143 104 65 26|  0,0|  7,0| 14,1| 21,1; left 453 52 45 13 dV
pen #00ffff; curve 40 165 400 165 20 1; fill 443 160 8 3 #00ffff; left 453 154 45 13 Current
column 407 275 236 197 158 177| 0,00| 0,92| 1,83| 2,75|A
pen #ff0000; curve 40 233 400 233 20 1; fill 443 190 8 3 #ff0000; left 453 184 45 13 Temp.
column 10 275 236 197 158 177|24,0|25,3|26,7|28,0|°C
pen #c71585; curve 362 253 400 253 3 1; fill 443 220 8 3 #c71585; pen #e31897; left 453 214 45 13 Ri
pen #ffffff; right 442 35 56 13 11,59 V; right 442 167 56 13 2,50 A; right 442 197 56 13 25,3 °C
right 442 227 56 13 40 mΩ; font 10; right 442 65 56 13 19,2 mV/min)");
    add("20 white number=10 size=300,160 delta=2", "line|curve|^rect|'00:|Charge| at (25[35]|20[67]),[0-6]",
        R"(
fill 0 0 300 160 #ffffff; fill 1 138 14 21 #ffff00; pen #000000
font 11; mid 0 0 300 21 Charge  3xLiPo  11,59 V   2,50 A  25,3 °C  1,900 Ah  00:19:00
row 153 20 100 180|00:00:00|00:09:30|00:19:00
pen #5a5a5a; y 135 : 40 200; x 40 80 120 160 200 : 135 138; x 38 202 : 22 69; x 38 202 : 84 131
pen #d7d7d7 dot; x 40 80 120 160 200 : 22 131; y 22 46 69 84 108 131 : 40 200
pen #00ff00; curve 40 60 200 31 20 2; pen #ffd700; curve 40 69 200 26 20 2; pen #007af5
curve 40 88 200 88 20 2; pen #ff0000; curve 40 116 200 116 20 2; pen #c71585; curve 183 124 200 124 3 2
fill 243 27 8 3 #00ff00; fill 243 50 8 3 #ffd700; fill 243 90 8 3 #007af5; fill 243 105 8 3 #ff0000
fill 243 120 8 3 #c71585; pen #008500; font 10; left 253 22 45 11 Voltage; pen #857000
left 253 45 45 11 Energy; font 11; column 207 50 26 37|1.045|2.090|mAh
pen #0070e1; column 207 135 112| 0,00| 1,38)");
    add("1 number=9 size=300,160", "^rect 1,", "fill 1 138 10 21 #ffff00");
    add("20 size=200,100", "text|^rect", R"(
fill 0 0 200 100 #000000; fill 1 78 10 21 #ffff00; pen #000000; font 13; mid 1 78 10 21 3
pen #ffffff; font 8; mid 0 0 200 21 Charge  11,59 V   2,50 A  25,3 °C  1,900 Ah  00:19:00
right 153 22 45 8 11,59 V; right 153 30 45 8 19,2 mV/min; right 153 54 45 5 2,50 A; right 153 59 45 5 25,3 °C
right 153 64 45 5 40 mΩ; font 11; row 93 20 80|00:00:00|00:19:00
pen #ffff00; column 107 43 26|  0,0| 21,1; pen #00ffff; column 107 75 58| 0,00| 2,75
pen #ff0000; column 10 75 58|24,0|28,0; pen #00ff00; font 10; column 10 43 26|11,35|11,65
fill 143 25 8 3 #00ff00; fill 143 33 8 3 #ffff00; fill 143 56 8 3 #00ffff; fill 143 61 8 3 #ff0000
fill 143 66 8 3 #c71585)");
    add("20 size=503,300", "'00:|line.*27[58]", R"(
pen #ffffff; font 11; row 293 20 111 202 292 383|00:00:00|00:04:45|00:09:31|00:14:14|00:19:00
pen #aaaaaa; y 275 : 40 403; x 40 85 131 176 222 267 312 358 403 : 275 278)");
    add("20 zoomUpper=300,900,0.25,0.75", "'00:|,278 #|#505050|curve|at (10|407),(26|65) ", R"(
pen #ffffff; font 11; row 293 56 128 200 272 344|00:06:00|00:08:00|00:10:00|00:12:00|00:14:00
pen #aaaaaa; x 76 148 220 292 364 : 275 278; pen #505050 dot; x 76 148 220 292 364 : 22 271
y 22 61 100 139 154 193 232 271 : 40 400; pen #00ff00; curve 4 123 436 30 13 1
pen #ffff00; curve 4 198 436 198 13 1; column 407 65 26| 12,3| 15,8
pen #00ffff; curve 4 165 436 165 13 1; pen #ff0000; curve 4 233 436 233 13 1
pen #00ff00; font 10; column 10 65 26|11,52|11,57)");
    add("20 zoomUpper=0,859,0,1 size=460,300", "'00:", R"(
pen #ffffff; font 11; row 293 20 109 199 288|00:00:00|00:04:00|00:08:00|00:12:00)");
    add("4 size=240,200", "'00:", "pen #ffffff; font 11; row 193 53 120|00:00:59|00:03:00");
    add("20 zoomLower=300,900,0.5,0.501", "at (10|407),(275|158)", R"(
pen #00ffff; font 11; column 407 275 158|1,3750|1,3778; pen #ff0000; font 8
column 10 275 158|26,000|26,004)");
    add("20 voltage=-123456", "at [0-9]*,(143|26) .*#00", R"(
pen #00ff00; font 8; column 9 143 26|-123,61|-123,31)");
    add("20 voltage=12345600", "at [0-9]*,(143|26) .*#00", R"(
pen #00ff00; font 8; column 2 143 26|1,23e+04|1,23e+04)");
    add("3 B picked=1", "#505050|curve|rect 44|at (4[4-7]|10,(143|104|65|45|26) )", R"(
pen #505050 dot; x 40 220 400 : 22 139; x 40 220 400 : 154 271; y 22 61 100 139 154 193 232 271 : 40 400
pen #00bb00; curve 40 83 400 83 3 2; pen #ff0022; curve 40 84 400 84 3 1; pen #0066ff; curve 40 82 400 82 3 1
pen #00ffff; curve 40 165 400 165 3 1; pen #ff0000; curve 40 233 400 233 3 1
font 11; pen #ffffff; column 10 143 104 65 26 45|3,30|3,65|4,00|4,35|V
fill 443 63 7 3 #ff0022; fill 443 80 7 3 #00bb00; fill 443 97 7 3 #0066ff; fill 442 73 58 17 #3c3c3c
right 442 56 56 17 3,790; right 442 90 56 17 3,810; right 442 167 56 13 2,50 A; right 442 197 56 13 25,3 °C
pen #ff0022; right 451 56 14 17 1; pen #0a6cff; right 451 90 14 17 3
pen #00ffff; left 442 22 58 17    Cels:; left 442 39 58 17 Voltage: V
fill 443 160 8 3 #00ffff; left 453 154 45 13 Current; fill 443 190 8 3 #ff0000; pen #ff0000
left 453 184 45 13 Temp.
font 11 bold; pen #00c500; right 451 73 14 17 2; pen #ffffff; right 442 73 56 17 3,800)");
    add("3 B distinct picked=1", "'3,79|rect 4[34]\\d,[678]\\d (4|14|67)", R"(
fill 434 63 14 3 #ffffff; fill 434 80 4 3 #ffb000; fill 441 80 4 3 #ffb000; fill 433 73 67 17 #3c3c3c
pen #ffffff; font 11; right 442 56 56 17 3,790)");
    add("3 B cells=16 size=360,240", "at (29|30|32|33).*,(29|30|39|40|50|59) |rect (29|32).,(50|59) ", R"(
font 8; pen #ff0022; left 294 42 31 9 1; pen #00bb00; left 294 51 31 9 2
pen #66aaff; left 325 42 35 9 9; pen #d83c63; left 325 51 35 9 10
pen #ffffff; right 294 42 28 9 3,790; right 294 51 28 9 3,800; right 325 42 32 9 3,870
right 325 51 32 9 3,880
pen #00ffff; left 294 22 66 10    Cels:; left 294 32 66 10 Voltage: V)");
    add("3 B cells=16 size=460,300", "at 4.*#ff0022|(3,790|Cels).* at 4", R"(
font 9; pen #ff0022; right 411 42 14 10 1; pen #ffffff; right 402 42 56 10 3,790
font 8; pen #00ffff; left 402 22 58 10    Cels:)");
    add("3 B cells=5 size=300,120 v3=123456", "at 2[67].*,49 ", R"(
pen #ffffff; font 8; right 265 42 32 8 123,456)"); // no room for the number
    add("3 Avg", "at (44|47)|rect 44[25]|at 407,.*#ff8800", R"(
fill 442 57 3 15 #ff0022; fill 442 74 3 15 #00bb00; fill 442 91 3 15 #0066ff; fill 442 108 3 15 #ff8800
pen #00ffff; font 8; left 447 107 53 17 Delta; font 10; left 447 56 53 17 Max; left 447 73 53 17 Avg
font 11; left 447 90 53 17 Min; left 442 22 58 17    Cels:; left 442 39 58 17 Voltage: V
pen #ff8800; column 407 143 104 65 26 45|   0|  11|  22|  33|mV
pen #ffffff; right 442 90 56 17 3,790; font 10; right 442 56 56 17 3,810; right 442 73 56 17 3,800
font 8; right 442 107 56 17 20 mV)");
    add("3 Avg distinct", "rect 44\\d,\\d* 3.*(ff[bf]|40a)", R"(
fill 442 57 3 4 #ffffff; fill 442 64 3 4 #ffffff; fill 442 71 3 1 #ffffff; fill 442 74 3 15 #ffb000
fill 442 91 3 2 #40a0ff; fill 442 95 3 2 #40a0ff; fill 442 99 3 2 #40a0ff; fill 442 103 3 2 #40a0ff)");
    add("20 size=1000,600 scale=2 zoomUpper=300,1100,0,1", "curve.*#00ff00", R"(
pen #00ff00; curve 26 204 836 87 16 1)");
    add("0", ".", R"(
fill 0 0 500 300 #000000; fill 1 278 10 21 #ffff00; pen #000000; font 13; mid 1 278 10 21 3
pen #bfbfbf; font 53; mid 0 0 500 300 NO DATA)");
    add("3 B celldata=0", "#505050|NO|This", R"(
pen #505050 dot; x 40 220 400 : 22 271; y 22 61 100 139 154 193 232 271 : 40 400
pen #ffff00; font 27; mid 40 22 361 118 NO DATA; font 12
mid 40 95 361 14 This recording has no cell data.)");
    add("3 B celldata=0 white size=250,300", "NO|This", R"(
pen #857000; font 25; mid 40 22 111 118 NO DATA; font 8; mid 40 94 111 10 This recording has no cell data.)");
    add("20 cursor=5", "line 135|rect 143,27|,(42|55|68|81|94|107) ", R"(
pen #aaaaaa; x 135 : 22 139; x 135 : 154 271; pen #505050; box 143 27 111 88 #eb3c3c3c
font 11; pen #ffffff; right 148 32 101 13 00:05:00
pen #00ff00; left 148 45 101 13 Voltage; right 148 45 101 13 11,45 V
pen #ffff00; left 148 58 101 13 dV; right 148 58 101 13 0,0 mV/min
pen #00ffff; left 148 71 101 13 Current; right 148 71 101 13 2,50 A
pen #ff8585; left 148 84 101 13 Temp.; right 148 84 101 13 25,3 °C
pen #f283c9; left 148 97 101 13 Ri; right 148 97 101 13 --,- mΩ)");
    add("20 cursor=19 marked=0 white", "line 400?,(22|154).*5a5a5a|rect 275|,42 |b51379|Δ|mAh", R"(
pen #5a5a5a dash; x 40 : 22 139; x 40 : 154 271
pen #5a5a5a; x 400 : 22 139; x 400 : 154 271; pen #d7d7d7; box 275 27 117 88 #ebdee2e6
pen #000000; font 11
mid 0 0 500 21 Δ 00:19:00   +1.900 mAh   Voltage +0,190 V   dV +19,2 mV/min   Current 0,000 A   Temp. 0,0 °C
right 280 32 107 13 00:19:00
pen #b51379; left 280 97 107 13 Ri; right 280 97 107 13 40 mΩ)");
    add("3 B cursor=1 cells=16 size=300,200", "rect 14,|at [1-9][0-9]*,(42|55|68) ", R"(
pen #505050; box 14 27 98 49 #eb3c3c3c; pen #ffffff; font 11; right 19 32 88 13 00:01:00; column 10 42|V
pen #00ffff; left 19 45 88 13 Current; right 19 45 88 13 2,50 A
pen #ff8585; left 19 58 88 13 Temp.; right 19 58 88 13 25,3 °C)"); // no room for cells
    add("3 B cursor=0 cells=16 size=640,300", "pen1|rect .*3c3c3c|Cell (1|9|10)'", R"(
pen #505050; box 48 27 198 140 #eb3c3c3c; font 11; pen #ff8595; left 53 45 89 13 Cell 1
pen #66aaff; left 53 149 89 13 Cell 9; pen #e991a7; left 153 32 89 13 Cell 10)");
    add("3 B cursor=0 cells=15 size=640,300", "pen1|rect .*3c3c3c",
        "pen #505050; box 48 27 98 244 #eb3c3c3c");
    add("3 Avg cursor=2 size=200,120", "pen1|3c3c3c|at [34].*,(42|55) ", R"(
pen #505050; box 31 27 61 23 #eb3c3c3c; pen #ffffff; font 11; right 36 32 51 13 00:02:00)"); // the time alone
    add("20 cursor=5 size=301,300", "pen1|3c3c3c", "pen #505050; box 90 27 111 88 #eb3c3c3c"); // just fits
    add("20 cursor=5 size=290,300", "pen1|3c3c3c", "pen #505050; box 0 27 111 88 #eb3c3c3c"); // nowhere
    add("20 cursor=5 size=287,146 resistance=1000000", "pen1|3c3c3c|'(V|mV/min|00:05:00)'", R"(
pen #505050; box 87 27 61 23 #eb3c3c3c; pen #ffffff; font 11; right 92 32 51 13 00:05:00
pen #00ff00; column 10 36|V; pen #ffff00; font 10; column 194 36|mV/min)");
    add("20 delta=2 size=300,148", "'Energy", "pen #ffff00; font 9; row 51 253|Energy");
    add("20 cursor=5 size=1200,70", "3c3c3c", "fill 327 27 676 23 #eb3c3c3c"); // a line in all
    add("3 Avg cursor=0 marked=2 max@2=3830 period=0", "Δ|mAh|[24]0 mV",
        R"(
pen #ff8800; font 11; right 53 84 88 13 20 mV; pen #ffffff; font 8; right 442 107 56 17 40 mV; font 9
mid 0 0 500 21 Δ 00:00:00   +200 mAh   Max +0,020 V   Avg 0,000 V   Min 0,000 V   Delta +20 mV)"
        "   Current 0,000 A   Temp. 0,0 °C");
    add("20 marked=5 cursor=0 Rw=1", "line 135|Δ|mAh", R"(
pen #aaaaaa dash; x 135 : 22 139; x 135 : 154 271; pen #ffffff; font 12
mid 0 0 500 21 Δ 00:05:00   +500 mAh   Voltage +0,050 V   dV 0,0 mV/min   Current 0,000 A   Temp. 0,0 °C)");
    add("20 marked=18 size=300,300 energy@19=0", "Δ|mAh",
        R"(
pen #ffffff; font 8; mid 0 0 300 21 Δ 00:01:00   -1.800 mAh   Voltage +0,010 V   dV +9,2 mV/min)"
        "   Current 0,000 A");
    add("20 zoomUpper=300,900,0,1 marked=5 cursor=15 note=Gone period@6=-100", "Δ|Gone|mAh",
        R"(
pen #ffa500; font 11
mid 0 0 500 21 Gone   Δ 00:07:20   +1.000 mAh   Voltage +0,100 V   dV 0,0 mV/min)"
        "   Current 0,000 A   Temp. 0,0 °C");
    add("20 zoomUpper=300,900,0,1 cursor=4", "3c3c3c", "");
    add("20 zoomUpper=300,900,0,1 cursor=16", "3c3c3c", "");
    add("20 band=50,60,100,40", "rect 50,", "pen #00ffff dash; box 50 60 99 39 #2800ffff");
    add("20 size=1000,600 scale=2", "rect [02],|curve|line 80,550|at 5,|'V'", R"(
pen #00ff00; font 11; column 10 45|V
fill 0 0 1000 600 #000000; fill 1 278 10 21 #ffff00; pen #000000; font 13; mid 1 278 10 21 3
pen #aaaaaa; y 275 : 40 400; x 40 : 275 278; pen #00ff00; curve 80 235 800 87 20 1
pen #ffff00; curve 80 278 800 65 20 1; pen #00ffff; curve 80 329 800 329 20 1
pen #ff0000; curve 80 466 800 466 20 1; pen #c71585; curve 724 507 800 507 3 1)");
    add("20 note=Gone size=300,200", "Gone", R"(
pen #ffa500; font 9; mid 0 0 300 21 Gone   Charge  3xLiPo  11,59 V   2,50 A  25,3 °C  1,900 Ah  00:19:00)");
    add("20 note=Gone_since_the_early_morning_of_that_long_day size=200,120", "Gone", R"(
pen #ffa500; font 8; mid 0 0 200 21 Gone_since_the_early_morning_of_that_long_day   )");
    add("20 energy=100000 temperature=0 current=99999", "Charge", R"(
pen #ffffff; font 12; mid 0 0 500 21 Charge  3xLiPo  11,59 V  100,00 A  --,- °C  100,00 Ah  00:19:00)");
    add("20 energy=99999 mode=9", "3xLi", R"(
pen #ffffff; font 12; mid 0 0 500 21 3xLiPo  11,59 V   2,50 A  25,3 °C  99,999 Ah  00:19:00)");
    add("1", "'00:|line .*27[58] |line 40,22", R"(
pen #aaaaaa; y 275 : 40 400; x 40 : 275 278; pen #505050 dot; x 40 : 22 271; y 22 : 40 400
pen #ffffff; font 11; row 293 20|00:00:00)");
    add("20 current=2000000000", "at 407,(236|158)", R"(
pen #00ffff; font 8; column 407 236|7,33e+05; font 9; column 407 158|2,2e+06)");
    add("3 B type=77 cells=99 v3=1000000000 temperature=2000000000 voltage=2000000000", "no such", "");
    add("3 cells=-5 current=-2000000000 temperature=-2000000000 voltage=-2000000000", "no such", "");
    add("20 size=90,40", ".", R"(
fill 0 0 90 40 #000000; fill 1 18 10 21 #ffff00; pen #000000; font 13; mid 1 18 10 21 3)");
}

void TestGraphPainter::paints()
{
    QFETCH(QString, graph);
    QFETCH(QString, part);
    QFETCH(QString, commands);
    QLocale::setDefault(QLocale::German);
    const GraphCase shown(graph);
    const auto painted = [&](GraphPainter *graphPainter) {
        PaintLog log;
        QPainter painter(&log);
        graphPainter->paint(&painter, shown.request());
        return painter.transform().isIdentity() ? log.lines() : QStringList();
    };
    GraphPainter fresh;
    const QStringList lines = painted(&fresh);
    QStringList wrong = lines.filter(QRegularExpression(part));
    const auto wanted = paintedBy(commands, shown.request().scale);
    for (const QString &line : wanted) {
        if (!wrong.removeOne(line))
            wrong.append(QStringLiteral("missing: ") + line);
    }
    QCOMPARE(wrong.join(QLatin1Char('\n')), QString());
    QStringList curves = lines.filter(QRegularExpression(part)).filter(QRegularExpression("^curve"));
    std::reverse(curves.begin(), curves.end()); // commands tell first what lies on top
    QCOMPARE(curves, wanted.filter(QRegularExpression("^curve")));
    QVERIFY(lines.first().startsWith(QLatin1String("rect 0,0 ")));
    QCOMPARE(painted(&m_used), lines); // what one painting left in pens, scales and grid shows in no other
    QImage image(shown.request().size, QImage::Format_RGB32);
    QPainter painter(&image);
    m_used.paint(&painter, shown.request()); // figures far outside don't stop what makes pixels
    QPicture taken;
    QPainter taker(&taken);
    fresh.paint(&taker, shown.request());
    taker.end();
    QImage replayed = image;
    replayed.fill(Qt::red);
    QPainter(&replayed).drawPicture(0, 0, taken);
    QCOMPARE(image, replayed); // what is quick has the pixels of what is not
}

QTEST_MAIN(TestGraphPainter)
#include "tst_graphpainter.moc"
