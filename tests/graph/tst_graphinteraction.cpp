#include "graph/graphinteraction.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/graphcase.h"

#include <QWheelEvent>

#include <memory>

namespace {

// A pixel is a second, from 40 on: plots from 40 to 900, the upper one from 22 to 289, the lower one from 304
// to 571. The legend's rows are 17 px high from 56 on, from 942.
constexpr char usual[] = "87 period=10 cells=6";
constexpr QSize size(1000, 600);

QString percent(const Interval &share)
{
    return QString(" %1..%2").arg(100 * share.low, 0, 'g', 3).arg(100 * share.high, 0, 'g', 3);
}

} // namespace

/// What is seen after each step: the times that are shown (s) with the shares of the values (upper plot,
/// lower plot, in per cent), or "all"; the records of the two cursors, what is being picked, the picked
/// cells, a closed hand, the record that the figures are to show from now on; "no" where an event meant
/// nothing.
class TestGraphInteraction : public QObject {
    Q_OBJECT

public slots:
    void point(int record) { pointed = record; }

private slots:
    void cleanup() { widget.reset(); }
    void steps_data();
    void steps();

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        updated = updated || event->type() == QEvent::UpdateRequest;
        return false;
    }

private:
    QString run(const QString &command);
    QString view();

    std::unique_ptr<QWidget> widget;
    GraphInteraction *interaction = nullptr;
    SeriesStore store;
    ViewState state;
    int pointed = -1; // in this step
    bool updated = false;
    QString seen; // before
};

/// Commands, what is seen after the last one of a line; B is a button, N a number:
///   hover X,Y   press B X,Y   move B X,Y   release B X,Y   click B X,Y   drag B X,Y X,Y   double B X,Y
///   turn N X,Y   key NAME    leave    hide    resize W,H SCALE   set SWITCH   unset SWITCH
///   add N        so many records    rewind    one with the time 0    ranged    how many the axes cover
/// "ctrl", "shift", "alt" are held; a wheel that turns "sideways".
void TestGraphInteraction::steps_data()
{
    const auto add = columns<QString, QString>({"records", "script"});
    add("pointing", usual, R"(
hover 40,100 = all cursor 0 shows 0
hover 44,100 = all cursor 0 shows 0
hover 46,100 = all cursor 1 shows 1
hover 470,500 = all cursor 43 shows 43
hover 900,100 = all cursor 86 shows 86
hover 901,100 = all shows 86
hover 470,100 = all cursor 43 shows 43
hover 470,600 = all cursor 43
hover 39,100 = all
hover 470,155; leave = all shows 86
hover 40,100; key Escape = all shows 86
hide; press left 470,155 = all)");
    add("with larger letters the pointer means what is drawn under it", usual, R"(
resize 1000,600 2; hover 442,200 = all cursor 43 shows 43
hover 802,200 = all shows 86
drag left 80,44 440,120 = 0..430 67.5..100 0..100 cursor 22 shows 22
turn -20 440,120 = 0..860 67.5..100 0..100 cursor 43 shows 43
resize 1000,600 9; hover 702,100 = 0..860 67.5..100 0..100 shows 86)");
    add("picking", usual, R"(
press left 470,155 = all shows 43
move left 255,88 = all band 255 88 470 155
release left 255,88 = 215..430 50.2..75.3 0..100 cursor 27 shows 27
press left 470,500; move left 990,20 = 215..430 50.2..75.3 0..100 band 470 304 900 500
release left 990,20 = 322.5..430 50.2..75.3 26.6..100 shows 43
double left 470,437 = all cursor 43 shows 43
drag left 100,330 100,330 = all cursor 6 shows 6
drag left 100,330 300,333 = all cursor 26 shows 26
drag left 100,330 103,530 = all cursor 6 shows 6
drag left 100,330 104,334 = 57..67 0..100 88.8..90.3 cursor 6 shows 6
double right 470,437 = 57..67 0..100 88.8..90.3 cursor 6 hand shows 6
release right 470,437; double left 470,437 = all cursor 43 shows 43
drag left 20,100 400,200 = all cursor 36 shows 36
drag left 470,295 600,400 = all cursor 56 shows 56
press left 470,155; move left 500,200 = all band 470 155 500 200
key Escape = all cursor 43
release left 500,200 = all cursor 46 shows 46
press left 470,155 = all shows 43
release left 470,155 = all cursor 43 shows 43
press left 470,155; move left 560,200; resize 1000,600 1; release left 600,200 = all cursor 56 shows 56)");
    add("wheel", usual, R"(
turn 1 255,155 = 43..731 0..100 0..100 cursor 22 shows 22
turn 1 255,155 ctrl = 43..731 10..90 0..100 cursor 22 shows 22
turn -1 255,155 ctrl = 43..731 0..100 0..100 cursor 22 shows 22
turn 1 470,437 ctrl = 43..731 0..100 10..90 cursor 39 shows 39
turn -1 470,437 ctrl alt sideways = 43..731 0..100 0..100 cursor 39 shows 39
turn -3 255,155 = all cursor 22 shows 22
turn 100 255,155 = 212.5..222.5 0..100 0..100 cursor 22 shows 22
turn 0 255,155 = no
turn 1 10,10 = no)");
    add("middle button", usual, R"(
click middle 470,437 ctrl = all cursor 43 shows 43
click middle 470,437 = 215..645 0..100 25.1..75.1 cursor 43 shows 43
double left 470,437 = all cursor 43 shows 43
click middle 470,437; click middle 470,437 = 322.5..537.5 0..100 37.6..62.6 cursor 43 shows 43
click middle 470,437 ctrl = 215..645 0..100 25.1..75.1 cursor 43 shows 43
click middle 20,400 = 215..430 0..100 25.1..75.1
click middle 470,295 ctrl; click middle 470,437 ctrl = all cursor 43 shows 43
hide; release middle 470,437 = all cursor 43 shows 43)");
    add("dragging, never past the recording", usual, R"(
press right 470,155 = all cursor 43 shows 43
move right 570,155 = all cursor 43
release right 470,155 = all cursor 43 shows 43
click middle 470,155; press right 470,155 = 215..645 25.1..75.1 0..100 cursor 43 hand shows 43
move right 556,155 = 172..602 25.1..75.1 0..100 cursor 43 hand
move right 556,208 = 172..602 35..85 0..100 cursor 43 hand
release right 556,208 = 172..602 35..85 0..100 cursor 43 shows 43
move right 640,208 = 172..602 35..85 0..100 cursor 43
drag right 470,155 1270,755 = 0..430 50..100 0..100 cursor 39 shows 39
drag right 470,155 -1330,-445 = 430..860 0..50 0..100 cursor 22 shows 22
press right 470,155; leave = 430..860 0..50 0..100 shows 86)");
    add("legend", usual, R"(
click left 970,81 = all shows 86
set balancer; click left 970,81 = all cell 1 shows 86
click left 970,132 = all cell 4 shows 86
click left 970,64 ctrl = all cell 0 cell 4 shows 86
click left 970,132 ctrl = all cell 0 shows 86
click left 941,100 = all cell 0 shows 86
click left 942,158 = all shows 86
turn 1 470,155; click left 970,98 = 86..774 0..100 0..100 cell 2 shows 77
double left 970,98 = 86..774 0..100 0..100 cell 2
double left 470,155 = all cursor 43 cell 2 shows 43
set average; click left 970,81 = all cell 2 shows 86)");
    add("legend of two columns", "2 cells=15", R"(
set balancer; resize 360,240 1; click left 300,46 = all cell 0 shows 1
click left 326,112 = all shows 1)");
    add("moving by keys", usual, R"(
key Left = all cursor 86 shows 86
key Left = all cursor 85 shows 85
key Left shift = all cursor 84 shows 84
key Right = all cursor 85 shows 85
key Escape = all shows 86
key Right = all cursor 0 shows 0
key Escape; drag left 124,22 813,289; key Home = all cursor 70
key Escape; click middle 472,400 = 216..646 0..100 32..82 cursor 43 shows 43
click middle 472,100 ctrl; click middle 472,100; leave = 216..646 35.4..85.4 32..82 shows 86
key Left = 216..646 35.4..85.4 32..82 cursor 64 shows 64
key Escape; key Right = 216..646 35.4..85.4 32..82 cursor 22 shows 22
key Left = 210..640 35.4..85.4 32..82 cursor 21 shows 21
hover 889,100; key Right = 210..640 35.4..85.4 32..82 cursor 64 shows 64
key Right = 220..650 35.4..85.4 32..82 cursor 65 shows 65
key F1 = no)");
    add("second cursor", usual, R"(
hover 40,88; key Space shift = all cursor 0 marked 0
key Escape = all cursor 0
click left 40,88 shift = all cursor 0 marked 0 shows 0
click left 40,88 shift = all cursor 0 shows 0
press left 255,88 shift = all cursor 22 marked 22 shows 22
move left 470,155; release left 470,155 shift = all cursor 43 marked 22 shows 43
drag left 470,155 685,222 = 430..645 25.1..50.2 0..100 cursor 59 marked 22 shows 59
key Home; add 1 = all marked 22
key Left shift = all cursor 87 marked 22 shows 87
key Escape = all cursor 87
key Space shift = all cursor 87 marked 87
double left 470,155 shift = all cursor 44 shows 44
double left 470,155 shift; click left 470,155 shift = all cursor 44 shows 44
leave; key Space shift = all marked 87
click right 470,155 shift; click left 470,295 shift; leave = all marked 87 shows 87
key Space = no)");
    add("zooming by keys", usual, R"(
key Plus = 86..774 0..100 0..100
key Equal = 154.8..705.2 0..100 0..100
key Minus = 86..774 0..100 0..100
key Minus = all
key PageDown; key Plus ctrl = 0..860 0..100 10..90
key Down = 0..860 0..100 2.25..82.2
key Up = 0..860 0..100 10..90
key PageUp; key Plus ctrl = 0..860 10..90 10..90
key Plus; key Right ctrl = 154.8..842.8 10..90 10..90
key Left ctrl = 86..774 10..90 10..90
key Minus ctrl = 86..774 0..100 10..90
key Home = all
hover 255,100; key Plus = 44..732 0..100 0..100 cursor 22
key Home; hover 40,100; key Plus = 0..688 0..100 0..100 cursor 0
key Right = 0..688 0..100 0..100 cursor 1 shows 1
hover 40,400; key Plus ctrl = 0..688 0..100 10..90 cursor 0)");
    add("picking cells by keys", usual, R"(
key Down ctrl = all
set balancer; key Up ctrl = all cell 5
key Down ctrl = all cell 0
key Down ctrl = all cell 1
key Up ctrl shift = all cell 0 cell 1
key Up ctrl = all cell 5
click left 970,115; key Down ctrl = all cell 4
key Escape = all
key Down ctrl = all cell 0)");
    add("records that come end zoom, picking and dragging", usual, R"(
turn 3 470,155; press left 470,155; move left 600,250; add 1 = all
release left 800,250 = all cursor 77 shows 77
turn 3 470,155; press right 470,155; add 1 = all)");
    add("held view", usual, R"(
set holdView; add 1; turn 3 470,155; key Left = 212.3..657.7 0..100 0..100 cursor 43 shows 43
ranged = 0
add 9 = 212.3..657.7 0..100 0..100 cursor 43
ranged = 88
add 1; ranged = 88
drag right 900,155 40,155 = 524.6..970 0..100 0..100 cursor 52 shows 52
ranged = 98
key Home; ranged = 0
add 1; turn 3 470,155; add 1; ranged = 99
rewind; ranged = 0
unset holdView; ranged = 0
add 1 = all)");
    add("a clock that was set back", "87 period=10 period@30=-290 cells=6", R"(
hover 40,100 = all cursor 0 shows 0
hover 470,100 = all cursor 28 shows 28
hover 685,100 = all cursor 72 shows 72
drag left 685,50 900,270; hover 470,100 = 420..560 7.12..89.5 0..100 cursor 79 shows 79
key Left = 420..560 7.12..89.5 0..100 cursor 78 shows 78
double left 470,100; key Right = all cursor 29 shows 29
key Right = all cursor 30 shows 30
key Right = all cursor 31 shows 31
key Left; key Left = all cursor 29 shows 29)");
    add("of records of one time the first", "88 period=10 period@50=0",
        "hover 530,100 = all cursor 49 shows 49");
    add("many records to a pixel, and few", "1000 period=1 period@900-999=86", R"(
hover 42,100; hover 41,100; key Right = all cursor 17 shows 17
key Right shift = all cursor 128 shows 128
key Left = all cursor 127 shows 127
hover 899,100 = all cursor 999 shows 999
key Left shift = all cursor 998 shows 998
key Right; key Right = all cursor 999 shows 999
hover 45,100; key Left shift; key Left = all cursor 0 shows 0)");
    add("resizing divides the times anew", usual, R"(
drag left 298,50 645,270; resize 451,400 1 = 250..650 7.12..89.5 0..100 cursor 50
resize 449,400 1 = 200..700 7.12..89.5 0..100 cursor 50
resize 449,300 1; resize 449,310 1; resize 449,320 1 = 200..800 7.12..89.5 0..100 cursor 50
key Home; resize 1000,600 1; drag left 50,50 895,270 = 10..855 7.12..89.5 0..100 cursor 85 shows 85
resize 451,400 1 = 0..860 7.12..89.5 0..100 cursor 85)");
    add("no record", "0", R"(
hover 470,155 = all
turn 3 470,155 = no
drag left 470,155 570,255; drag right 470,155 570,255; drag middle 470,155 570,255 = all
key Left = no
leave = all
resize 60,40 1; hover 41,23 = all)");
    add("one record", "1 cells=1", R"(
set balancer; key Down ctrl = all cell 0
unset balancer; key Escape; hover 470,155 = all cursor 0 shows 0
turn 3 470,155 = all cursor 0 shows 0
drag left 470,155 570,255; drag right 470,155 570,255; drag middle 470,155 570,255 = all cursor 0 shows 0
key Left = all cursor 0 shows 0
key Plus; key Plus ctrl; key Up; key Right ctrl = all cursor 0
leave = all shows 0
resize 60,40 1; hover 41,23 = all)");
}

void TestGraphInteraction::steps()
{
    QFETCH(QString, records);
    QFETCH(QString, script);
    widget = std::make_unique<QWidget>();
    widget->show();
    widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(widget.get()));
    widget->installEventFilter(this);
    store = storeOf(records);
    state.setSwitches({});
    interaction = new GraphInteraction(widget.get(), &store, &state);
    interaction->resize(size, 1.0);
    connect(interaction, SIGNAL(recordPointedAt(int)), this, SLOT(point(int)));
    seen = "all";
    pointed = -1;
    const QStringList lines = script.trimmed().split('\n');
    for (const QString &line : lines) {
        const QStringList commands = line.section(" = ", 0, 0).split("; ");
        QString told;
        for (const QString &command : commands)
            told = run(command);
        QCOMPARE(line.section(" = ", 0, 0) + " = " + told, line);
    }
}

QString TestGraphInteraction::run(const QString &command)
{
    static const QHash<QString, Qt::MouseButton> buttons{
        {"left", Qt::LeftButton}, {"middle", Qt::MiddleButton}, {"right", Qt::RightButton}};
    static const QHash<QString, bool ViewSwitches::*> flags{{"balancer", &ViewSwitches::balancer},
        {"average", &ViewSwitches::average}, {"holdView", &ViewSwitches::holdView}};
    const QStringList words = command.split(' ');
    const auto isOne = [&](const QStringList &kinds) { return kinds.contains(words[0]); };
    QVector<QPoint> points;
    for (const QString &word : words)
        if (word.contains(','))
            points.append({word.section(',', 0, 0).toInt(), word.section(',', 1).toInt()});
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::ControlModifier, words.contains("ctrl"));
    held.setFlag(Qt::ShiftModifier, words.contains("shift"));
    held.setFlag(Qt::AltModifier, words.contains("alt"));
    const Qt::MouseButton button = buttons.value(words.value(1));
    const auto mouse = [&](QPoint at, auto handler) {
        const QMouseEvent event(QEvent::MouseMove, at, button, button, held);
        (interaction->*handler)(&event);
    };
    bool meant = true;
    if (isOne({"press", "click", "drag"}))
        mouse(points.first(), &GraphInteraction::press);
    if (isOne({"hover", "move", "drag"}))
        mouse(points.last(), &GraphInteraction::move);
    if (isOne({"release", "click", "drag"}))
        mouse(points.last(), &GraphInteraction::release);
    if (isOne({"double"}))
        mouse(points.last(), &GraphInteraction::doubleClick);
    if (isOne({"turn"})) {
        const QPoint up(0, 120 * words[1].toInt());
        const QWheelEvent event(points[0], points[0], {}, words.contains("sideways") ? up.transposed() : up,
            Qt::NoButton, held, Qt::NoScrollPhase, false);
        meant = interaction->wheel(&event);
    }
    if (isOne({"key"})) {
        const QByteArray name = "Key_" + words[1].toLatin1();
        const QKeyEvent event(QEvent::KeyPress, QMetaEnum::fromType<Qt::Key>().keyToValue(name), held);
        meant = interaction->key(&event);
    }
    if (isOne({"leave"}))
        interaction->leave();
    if (isOne({"hide"}))
        widget->hide();
    if (isOne({"resize"})) {
        interaction->resize({points[0].x(), points[0].y()}, words[2].toDouble());
        widget->update();
    }
    if (isOne({"set", "unset"})) {
        ViewSwitches switches = state.switches();
        switches.*flags[words[1]] = words[0] == "set";
        state.setSwitches(switches);
    }
    for (int i = isOne({"add"}) ? words[1].toInt() : isOne({"rewind"}); i > 0; --i) {
        Varnel3Data record = store.records().last();
        record.setTime(isOne({"rewind"}) ? 0 : record.time + 10);
        store.append(record);
        interaction->dataArrived();
        widget->update(); // as the window does, sparingly
    }
    return isOne({"ranged"}) ? QString::number(interaction->rangedRecords()) : meant ? view() : "no";
}

QString TestGraphInteraction::view()
{
    const GraphZoom &zoom = interaction->zoom();
    QString text = "all";
    if (zoom.isActive())
        text = QString("%1..%2").arg(zoom.times().low, 0, 'g', 4).arg(zoom.times().high, 0, 'g', 4)
            + percent(zoom.share(PlotArea::Upper)) + percent(zoom.share(PlotArea::Lower));
    if (interaction->cursorRecord() >= 0)
        text += QString(" cursor %1").arg(interaction->cursorRecord());
    if (interaction->markedRecord() >= 0)
        text += QString(" marked %1").arg(interaction->markedRecord());
    const QRect band = interaction->rubberBand();
    if (!band.isEmpty())
        QTextStream(&text, QIODevice::Append)
            << " band " << band.left() << ' ' << band.top() << ' ' << band.right() << ' ' << band.bottom();
    const CellSelection &cells = interaction->cells()->cells();
    for (size_t cell = 0; cell < cells.size(); ++cell)
        text += cells[cell] ? QString(" cell %1").arg(cell) : QString();
    QCoreApplication::sendPostedEvents();
    if (text != seen && !updated)
        text += ", not painted";
    updated = false;
    seen = text;
    if (widget->cursor().shape() == Qt::ClosedHandCursor)
        text += " hand";
    if (pointed >= 0)
        text += QString(" shows %1").arg(pointed);
    pointed = -1;
    return text;
}

QTEST_MAIN(TestGraphInteraction)
#include "tst_graphinteraction.moc"
