#include "overlay/overlayinteraction.h"
#include "overlay/overlayplot.h"
#include "overlay/scene/overlaylayout.h"
#include "overlay/scene/overlayscene.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/graphcase.h"
#include "support/paintlog.h"

#include <QWheelEvent>

#include <memory>

namespace {

constexpr QSize size(1000, 600); // plot from 56,22 to 719,573; the legend's rows from 730, 32 px high

QString joined(const QVector<OverlayScene::Tick> &ticks)
{
    QStringList texts;
    for (const OverlayScene::Tick &tick : ticks)
        texts.append(QString("%1@%2").arg(tick.text).arg(tick.at));
    return texts.join(' ');
}

/// Recordings, apart by '|', and what is asked: "value=N", "charge", "linedUp", "shift=S,S", "picked=N",
/// "cursor=PLACE", "marked=PLACE", "zoom=FROM,TO,LOW,HIGH", "white", "distinct". They are called A, B, C,
/// the first "called=NAME" instead.
OverlayRequest requestOf(const QString &words)
{
    OverlayRequest request;
    request.size = size;
    QStringList recordings = words.split(" | ");
    for (const QString &recording : qAsConst(recordings))
        if (!recording.isEmpty() && recording[0].isDigit())
            request.entries.append({std::make_shared<const OverlayCourse>(storeOf(recording)),
                QString(QChar('A' + request.entries.size()))});
    const QStringList asked = recordings.last().split(' ');
    for (const QString &word : asked) {
        const QStringList numbers = word.section('=', 1).split(',');
        const auto number = [&](int i) { return numbers.value(i).toDouble(); };
        const auto whole = [&](int i) { return numbers.value(i).toInt(); };
        const QHash<QString, std::function<void()>> meanings{
            {"value", [&] { request.value = OverlayValue(int(number(0))); }},
            {"charge", [&] { request.axis = OverlayAxis::Charge; }},
            {"linedUp", [&] { request.linedUp = true; }},
            {"shift",
                [&] {
                    for (int i = 0; i < numbers.size(); ++i)
                        request.entries[i].shift = number(i);
                }},
            {"picked", [&] { request.picked = int(number(0)); }},
            {"cursor", [&] { request.cursor = number(0); }},
            {"marked", [&] { request.marked = number(0); }},
            {"size", [&] { request.size = QSize(whole(0), whole(1)); }},
            {"scale", [&] { request.scale = number(0); }},
            {"white", [&] { request.black = false; }},
            {"band", [&] { request.rubberBand = QRect(whole(0), whole(1), whole(2), whole(3)); }},
            {"distinct", [&] { request.distinct = true; }},
            {"called", [&] { request.entries[0].label = word.section('=', 1); }},
            {"zoom",
                [&] {
                    request.zoom.show({number(0), number(1)}, PlotArea::Upper, {number(2), number(3)},
                        request.wholePlaces());
                }},
        };
        meanings.value(word.section('=', 0, 0), [] {})();
    }
    return request;
}

} // namespace

class TestOverlay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    /// Heading; rows; places; values; why there is no curve.
    void scenes_data()
    {
        const auto row = columnsOf<QString, QString>({"request", "told"});
        row("", "Pack voltage; ; ; ; No recording is shown: add files, or take the open graph windows.");
        row("2 celldata=0 | value=1",
            "Mean cell; A 00:01:00   100 mAh; ; ; None of these recordings has such values.");
        row("20 | 11 period=120 current@0-1=0 | linedUp value=5",
            "Current; A 00:19:00   1900 mAh, B 00:20:00   1000 mAh; 00:00:00@0 00:10:00@600; 0.0@0 0.5@0.5 "
            "1.0@1 1.5@1.5 2.0@2 2.5@2.5; ");
        row("20 | 11 period=120 current@0-1=0 | linedUp cursor=60",
            "Pack voltage   00:01:00; A 11.410 V   100 mAh, B 11.430 V   300 mAh; 00:00:00@0 00:10:00@600; "
            "11.4@11.4 11.5@11.5 11.6@11.6; ");
        row("20 | 11 | shift=0,-90 cursor=-60 zoom=-80,-20,0,1",
            "Pack voltage   -00:01:00; A --.- V, B (-00:01:30) 11.410 V   100 mAh; -00:01:20@-80 "
            "-00:01:00@-60 -00:00:40@-40 -00:00:20@-20; 11.4@11.4 11.5@11.5 11.6@11.6; ");
        row("20 | charge cursor=560 marked=1010 value=4",
            "Spread of the cells   Δ 450 mAh; A Δ 0 mV   00:04:00; 0 mAh@0 1000 mAh@1000; 0@0 10@0.01 "
            "20@0.02 30@0.03; ");
        row("20 min@15-19=3700 | marked=600 value=4 zoom=0,60,0.4,0.6",
            "Spread of the cells   from 00:10:00 to the end; A Δ +90 mV   00:09:00   900 mAh; 00:00:00@0 "
            "00:00:20@20 00:00:40@40 00:01:00@60; 65@0.065 70@0.07 75@0.075 80@0.08; ");
        row("20 | marked=1200 cursor=0",
            "Pack voltage   Δ 00:20:00; A --.- V; 00:00:00@0 00:10:00@600; 11.4@11.4 11.5@11.5 11.6@11.6; ");
        row("20 | cursor=300 value=7 zoom=0,60,0,0.1",
            "Resistance   00:05:00; A --.- mΩ; 00:00:00@0 00:00:20@20 00:00:40@40 00:01:00@60; 39.0@39 "
            "39.5@39.5 40.0@40; ");
        row("20 temperature@3=300 | cursor=1000 value=6 marked=0",
            "Temperature   Δ 00:16:40; A Δ 0.0 °C   1700 mAh; 00:00:00@0 00:10:00@600; 25.0@25 25.5@25.5 "
            "26.0@26 26.5@26.5 27.0@27 27.5@27.5 28.0@28; ");
        row("20 | 0 | 1 | linedUp value=5",
            "Current; A 00:19:00   1900 mAh, B --.-, C 00:00:00   0 mAh; 00:00:00@0 00:10:00@600; "
            "0.0@0 0.5@0.5 1.0@1 1.5@1.5 2.0@2 2.5@2.5; ");
        row("11 | 1 | shift=-1,1800",
            "Pack voltage; A (-00:00:01) 00:10:00   1000 mAh, B (+00:30:00) 00:00:00   0 mAh; "
            "00:00:00@0 00:15:00@900 00:30:00@1800; 11.3@11.3 11.4@11.4 11.5@11.5; ");
        row("11 start=600 | shift=1 zoom=600,660,0.4034,0.4496",
            "Pack voltage; A (+00:00:01) 00:10:00   1000 mAh; 00:10:20@620 00:10:40@640 00:11:00@660; "
            "11.425@11.425 11.430@11.43; ");
        row("1 energy@0=700 | charge linedUp cursor=0",
            "Pack voltage   0 mAh; A 11.400 V   00:00:00; ; 11.3@11.3 11.4@11.4 11.5@11.5; ");
        row("20 current@0-9=0 | charge linedUp shift=60",
            "Pack voltage; A 00:19:00   1900 mAh; -1000 mAh@-1000 0 mAh@0; 11.4@11.4 11.5@11.5 11.6@11.6; ");
    }

    void scenes()
    {
        QFETCH(QString, request);
        QCOMPARE(OverlayLayout(size, 1).columns({5, 5}).s2(), 6.0); // of one place
        const OverlayScene scene = OverlayScene::of(requestOf(request), 3, 6);
        QStringList rows;
        for (const OverlayScene::Row &row : scene.rows)
            rows.append(row.name + ' ' + row.figures);
        QTEST(QStringList(
                  {scene.heading, rows.join(", "), joined(scene.places), joined(scene.values), scene.reason})
                  .join("; "),
            "told");
    }

    /// Plot, second row and first line; whether there is room for curves.
    void layouts()
    {
        const std::tuple<QSize, int, QString> cases[]
            = {{{1000, 600}, 2, "56,22 664x552; 730,54 268x32; 0,0 1000x21"},
                {{500, 50}, 0, "56,22 284x2; 350,50 148x28; 0,0 500x21"},
                {{178, 50}, 3, "56,22 2x2; 68,31 108x9; 0,0 178x21"},
                {{177, 50}, 3, "56,22 1x2; 67,31 108x9; 0,0 177x21; small"},
                {{178, 49}, 3, "56,22 2x1; 68,31 108x9; 0,0 178x21; small"}};
        for (const auto &[whole, entries, told] : cases) {
            const OverlayLayout layout(whole, entries);
            QStringList texts;
            for (const QRect &rect : {layout.plot(), layout.row(1), layout.firstLine()})
                texts += QString("%1,%2 %3x").arg(rect.x()).arg(rect.y()).arg(rect.width())
                    + QString::number(rect.height());
            QCOMPARE(texts.join("; ") + (layout.isDrawable() ? "" : "; small"), told);
            for (int i = 0; i < entries; ++i)
                QCOMPARE(layout.entryAt(layout.row(i).center()), std::optional(i));
            QCOMPARE(layout.entryAt(layout.row(entries).topLeft()), std::nullopt);
        }
    }

    /// With unit, factor and decimals.
    void figures()
    {
        QString told;
        for (const char *value : {"0", "1", "2", "3", "4", "5", "6", "7"})
            told += OverlayScene::of(requestOf(QString("20 | cursor=1140 value=") + value)).rows[0].figures;
        QCOMPARE(
            told.remove("   1900 mAh"), QString("11.590 V3.800 V3.810 V3.790 V20 mV2.500 A25.3 °C40 mΩ"));
        QVERIFY(OverlayScene::axisName(OverlayAxis::Time) == "Time");
    }

    /// Twenty lines are twenty looks, on either background, distinct or not; the picked one is wide alone.
    void linesDiffer()
    {
        for (const char *asked : {"", "white", "distinct", "distinct white"}) {
            QString words;
            for (int i = 0; i < OverlayRequest::mostEntries; ++i)
                words += "1 | ";
            const OverlayScene scene = OverlayScene::of(requestOf(words + "picked=3 " + asked));
            QStringList looks;
            for (int i = 0; i < scene.lines.size(); ++i) {
                looks.append(scene.lines[i].colour.name() + QString::number(scene.lines[i].style));
                QCOMPARE(scene.lines[i].width, i == 3 ? 2 : 1);
            }
            QCOMPARE(looks.removeDuplicates(), 0);
        }
    }

    void paints_data()
    {
        const auto row = columnsOf<QString, QString>({"request", "painted"});
        row("20 | 11 | picked=1 cursor=570 marked=285",
            "text 'A' left 758,30 11 Arial #ff0022; "
            "rect 0,0 1000x600 #000000; line 230,22 230,573 dash1,2 #505050; line 230,575 230,578 #aaaaaa; "
            "text '00:05:00' mid 230,586 11 Arial #ffffff; text '11.40' right 50,472 11 Arial #ffffff; "
            "text 'V' right 50,11 11 Arial #ffffff; curve 56,472 719,123 of 20 #ff0022; "
            "curve 56,472 405,288 of 11 pen2 #00bb00; rect 730,28 24x3 #ff0022; rect 730,54 268x32 #3c3c3c; "
            "rect 730,60 24x3 #00bb00; text 'B' left 758,62 11 bold Arial #00c500; "
            "line 222,22 222,573 dash4,2 #aaaaaa; line 388,22 388,573 #aaaaaa");
        row("2 celldata=0 | value=1 size=1000,601",
            "text 'None of these recordings has such values.' mid 388,299 12 Arial #ffffff");
        row("20 | band=100,110,50,40",
            "rect 100,110 49x39 #2800ffff; rect 100,110 49x39 pen1 dash4,2 #00ffff");
        row("20 | cursor=1140 marked=0", "line 719,22 719,573 #aaaaaa; line 56,22 56,573 dash4,2 #aaaaaa");
        row("1 | white size=1000,120",
            "rect 0,0 1000x120 #ffffff; text 'Pack voltage' mid 500,11 12 Arial #000000; "
            "line 54,22 54,93 #5a5a5a; line 56,95 719,95 #5a5a5a; line 56,57 719,57 dash1,2 #d7d7d7; "
            "text '11.4' right 50,57 11 Arial #000000; text 'V' right 50,11 11 Arial #000000; "
            "rect 54,56 4x4 #ff0022; rect 730,28 24x3 #ff0022; text 'A' left 758,30 11 Arial #eb001f; "
            "text '00:00:00   0 mAh' right 998,46 11 Arial #000000");
        row("20 | 20 | size=1280,500 scale=2 distinct picked=0",
            "curve 112,372 874,118 of 20 #ffb000; in 112,44 763x403 #ffb000; "
            "curve 112,372 874,118 of 20 pen2 #ffffff; rect 896,56 24x3 #ffffff");
        row("20 | 20 | 20 | size=800,80 called=A_pack_with_a_name_that_is_longer_than_its_row",
            "text 'Pack voltage' mid 400,11 12 Arial #ffffff; text 'A_pack_…its_row' left 588,32 11 Arial "
            "#ff0022; text '00:19:00   1900 mAh' right 798,32 11 Arial #ffffff; "
            "rect 560,30 24x3 #ff0022; rect 560,49 24x3 #00bb00; rect 560,68 24x3 #0066ff");
        row("20 | 0 | 20 | linedUp size=800,88",
            "text '00:19:00   1900 mAh' right 798,39 11 Arial #ffffff; text '11.5' right 50,41 11 Arial "
            "#ffffff");
        row("20 | 20 | distinct",
            "in 56,22 664x552 #ffb000; rect 730,28 24x3 #ffffff; rect 737,60 4x3 #ffb000; rect 751,60 3x3 "
            "#ffb000");
        row("2 energy@1=10000000 | charge size=629,600",
            "text '4000000 mAh' mid 206,586 11 Arial #ffffff; "
            "no text '2000000 mAh' mid 131,586 11 Arial #ffffff");
        row("20 | zoom=300,600,0,0.5 white distinct",
            "curve -77,224 852,-33 of 8 pen2 #000000; in 56,22 664x552 #000000; "
            "text '00:06:00' mid 189,586 11 Arial #000000");
    }

    void paints()
    {
        QFETCH(QString, request);
        const OverlayRequest shown = requestOf(request);
        OverlayPainter overlay;
        PaintLog first(shown.size);
        PaintLog last(shown.size);
        for (PaintLog *log : {&first, &last}) { // once more with what was found
            QPainter painter(log);
            overlay.paint(&painter, shown);
            QVERIFY(painter.transform().isIdentity() && !painter.hasClipping());
        }
        QCOMPARE(last.lines(), first.lines());
        OverlayRequest other = shown; // of which nothing that was found holds
        for (const auto &change : {std::function<void()>([&] { other.value = OverlayValue::MeanCell; }),
                 std::function<void()>([&] { other.axis = OverlayAxis::Charge; }),
                 std::function<void()>([&] { other.size.rwidth() += 9; }),
                 std::function<void()>([&] { std::reverse(other.entries.begin(), other.entries.end()); })}) {
            change();
            const auto lines = [&other](OverlayPainter *by) {
                PaintLog log(other.size);
                QPainter painter(&log);
                by->paint(&painter, other);
                return log.lines();
            };
            OverlayPainter anew;
            QCOMPARE(lines(&overlay), lines(&anew));
        }
        QFETCH(QString, painted);
        QCOMPARE(last.fault(painted, request.startsWith("1 | white")), QByteArray()); // there all of it
    }

    /// With larger letters the pointer means what is drawn under it.
    void pointsAtWhatIsDrawn()
    {
        QWidget widget;
        widget.resize(2 * size);
        OverlayRequest request = requestOf("664 period=1 | 664 period=1 | scale=2");
        OverlayInteraction interaction(&widget, &request);
        const QMouseEvent press(QEvent::MouseButtonPress, {312, 200}, Qt::LeftButton, Qt::LeftButton, {});
        interaction.press(&press);
        QCOMPARE(request.cursor, std::optional(100.0));
    }

    void steps_data();
    void steps();

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        isPainted = isPainted || event->type() == QEvent::UpdateRequest;
        return false;
    }

private:
    void run(const QString &command);
    QString view();

    std::unique_ptr<OverlayPlot> plot;
    bool isPainted = false; // since the step before
    QString seen; // then
    ViewState state;
};

/// Two recordings of 663 s, so that a pixel is a second, from column 56 on; A is 50 s ahead of B when steps
/// begin. Commands: hover X,Y   press|release|click B X,Y   drag B X,Y X,Y   double X,Y   turn N X,Y   key
/// NAME   leave   value N   charge   lineUp   by SHIFT; "ctrl", "shift", "alt" are held.
void TestOverlay::steps_data()
{
    const auto add = columns<QString>({"script"});
    add("pointing", R"(
hover 56,100 = all cursor 0
hover 156,100 = all cursor 100
hover 719,573 = all cursor 663
hover 720,100 = all
hover 156,574 = all
press right 156,100 = all cursor 100
leave = all
key Left = all cursor 663
key Left shift = all cursor 653
key Right = all cursor 654
key Escape = all
key Escape = no
key Right = all cursor 0)");
    add("second cursor", R"(
click left 156,100 shift = all cursor 100 marked 100
hover 256,100 = all cursor 200 marked 100
double 256,100 shift = all cursor 200
key Space shift = all cursor 200 marked 200
key Escape = all cursor 200
key Escape; key Space shift = all marked 0
key Space shift = all
key Space = no)");
    add("zoom", R"(
press left 156,160; move left 356,435 = all band 156 160 201 276
release left 356,435 = 100..300 25..75 cursor 190
key Home = all cursor 190
drag left 156,160 159,435; drag left 156,160 356,163 = all cursor 300
drag left 156,160 160,164 = 97..107 74.2..75 cursor 99
key Home = all cursor 99
turn 0 387,100 = no
turn 1 387,100 = 66..597 0..100 cursor 331
turn 1 387,297 ctrl = 66..597 10..90 cursor 331
turn -9 387,297; turn -9 387,297 ctrl = all cursor 331
turn 1 730,100 = no
click middle 387,297 = 166..497 25..75 cursor 331
click middle 387,297 ctrl = all cursor 331
click middle 387,297; press right 387,297; move right 437,297 = 141..472 25..75 held
move right 487,297; release right 487,297 = 116..447 25..75 cursor 331
drag right 387,297 387,407 = 116..447 35..85 cursor 281
press right 387,297 = 116..447 35..85 cursor 281 held
key Escape; move left 400,300 = 116..447 35..85 cursor 281
double 387,297 = all cursor 331
key Equal; key Equal; key Minus; key Plus ctrl = 66..597 10..90 cursor 331
key Right ctrl; key Up = 119..649 18..98 cursor 331
key Left ctrl; key Down = 66..597 10..90 cursor 331
key Minus ctrl = 66..597 0..100 cursor 331
key Minus; key Home = all cursor 331
key Plus; key Plus ctrl; hover 719,100; key Right; key Right = 68..598 10..90 cursor 598)");
    add("picking and moving in time", R"(
double 800,60 = all picked B
click left 800,60; click left 800,200 = all
click left 800,30 = all picked A
click left 800,30 = all
key Down ctrl = all picked A
key Up ctrl = all picked B
key Down ctrl = all picked A
key Right alt = all picked A shift 1
key Left alt shift = all picked A shift -9
by 4 = all picked A shift 4
by -9 = all picked A shift -9
key Escape = all shift -9
key Left alt = all shift -9
press left 156,560 ctrl; move left 206,560 ctrl = all picked B shift -9,51 sideways
release left 206,560 = all cursor 155 picked B shift -9,51
drag left 156,40 96,40 ctrl = all cursor -26 picked A shift -74,51
charge; drag left 156,40 96,40 ctrl = all cursor 4000 picked A shift -74,51
key Delete; charge = all shift 51
key Delete = all)");
    add("moving from the first record on", R"(
drag left 56,560 656,560 ctrl = all cursor 1143 picked B shift 600
key Right alt = all cursor 1143 picked B shift 602
leave; key Escape; click left 656,560 ctrl = all cursor 1145 picked B shift 602)");
    add("what changes the axes", R"(
drag left 156,160 356,435 = 100..300 25..75 cursor 190
value 5 = 100..300 0..100 cursor 190
charge = all
click left 156,160 shift; press left 156,160; move left 356,435; lineUp = all
hover 800,60; key Delete; key Plus = no)");
}

void TestOverlay::steps()
{
    QFETCH(QString, script);
    ViewSwitches white;
    white.blackBackground = false;
    state.setSwitches(white);
    plot = std::make_unique<OverlayPlot>(&state);
    QVERIFY(!plot->shown().black);
    plot->resize(size);
    plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(plot.get()));
    plot->setEntries(requestOf("664 period=1 | 664 period=1 voltage=9000").entries);
    plot->installEventFilter(this);
    seen = "all";
    const QStringList lines = script.trimmed().split('\n');
    for (const QString &line : lines) {
        const QStringList commands = line.section(" = ", 0, 0).split("; ");
        for (const QString &command : commands)
            run(command);
        QCOMPARE(line.section(" = ", 0, 0) + " = " + view(), line);
    }
}

void TestOverlay::run(const QString &command)
{
    static const QHash<QString, Qt::MouseButton> buttons{
        {"left", Qt::LeftButton}, {"middle", Qt::MiddleButton}, {"right", Qt::RightButton}};
    const QStringList words = command.split(' ');
    QVector<QPoint> points;
    for (const QString &word : words)
        if (word.contains(','))
            points.append({word.section(',', 0, 0).toInt(), word.section(',', 1).toInt()});
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::ControlModifier, words.contains("ctrl"));
    held.setFlag(Qt::ShiftModifier, words.contains("shift"));
    held.setFlag(Qt::AltModifier, words.contains("alt"));
    const auto is = [&](const QStringList &kinds) { return kinds.contains(words[0]); };
    const auto button = is({"double"}) ? Qt::LeftButton : buttons.value(words.value(1));
    const auto mouse = [&](QEvent::Type type, const QPoint &at) {
        QMouseEvent event(type, at, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : button, held);
        QCoreApplication::sendEvent(plot.get(), &event);
    };
    plot->setProperty("meant", true);
    if (is({"press", "click", "drag"}))
        mouse(QEvent::MouseButtonPress, points.first());
    if (is({"double"}))
        mouse(QEvent::MouseButtonDblClick, points.first());
    if (is({"hover", "move", "drag"}))
        mouse(QEvent::MouseMove, points.last());
    if (is({"release", "click", "drag"}))
        mouse(QEvent::MouseButtonRelease, points.last());
    if (is({"turn"})) {
        QWheelEvent event(points[0], points[0], {}, QPoint(0, 120 * words[1].toInt()), Qt::NoButton, held,
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(plot.get(), &event);
        plot->setProperty("meant", event.isAccepted());
    }
    if (is({"key"})) {
        const QByteArray name = "Key_" + words[1].toLatin1();
        QKeyEvent event(QEvent::KeyPress, QMetaEnum::fromType<Qt::Key>().keyToValue(name), held);
        QCoreApplication::sendEvent(plot.get(), &event);
        plot->setProperty("meant", event.isAccepted());
    }
    if (is({"leave"})) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(plot.get(), &event);
    }
    if (is({"value"}))
        plot->setValue(OverlayValue(words[1].toInt()));
    if (is({"charge"}))
        plot->setAxis(plot->shown().axis == OverlayAxis::Time ? OverlayAxis::Charge : OverlayAxis::Time);
    if (is({"by"}))
        plot->setShift(words[1].toDouble());
    if (is({"lineUp"}))
        plot->setLinedUp(true);
}

QString TestOverlay::view()
{
    const OverlayRequest &shown = plot->shown();
    if (!plot->property("meant").toBool())
        return "no";
    QString text = "all";
    const Interval share = shown.zoom.share(PlotArea::Upper);
    if (shown.zoom.isActive())
        text = QString("%1..%2 ").arg(qRound(shown.zoom.times().low)).arg(qRound(shown.zoom.times().high))
            + QString("%1..%2").arg(100 * share.low, 0, 'g', 3).arg(100 * share.high, 0, 'g', 3);
    if (shown.cursor)
        text += QString(" cursor %1").arg(qRound(*shown.cursor));
    if (shown.marked)
        text += QString(" marked %1").arg(qRound(*shown.marked));
    const QRect band = shown.rubberBand;
    if (!band.isEmpty())
        QTextStream(&text, QIODevice::Append)
            << " band " << band.left() << ' ' << band.top() << ' ' << band.width() << ' ' << band.height();
    if (shown.picked != -1)
        text += " picked " + shown.entries.value(shown.picked).label;
    QStringList shifts;
    for (const OverlayEntry &entry : shown.entries)
        if (entry.shift != 0)
            shifts.append(QString::number(entry.shift));
    if (!shifts.isEmpty())
        text += " shift " + shifts.join(',');
    QCoreApplication::sendPostedEvents();
    if (text != std::exchange(seen, text) && !std::exchange(isPainted, false))
        text += ", not painted";
    const Qt::CursorShape pointer = plot->cursor().shape();
    return text
        + (pointer == Qt::ClosedHandCursor     ? " held"
                : pointer == Qt::SizeHorCursor ? " sideways"
                                               : "");
}

QTEST_MAIN(TestOverlay)
#include "tst_overlay.moc"
