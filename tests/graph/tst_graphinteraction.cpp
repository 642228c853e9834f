#include "graph/graphinteraction.h"
#include "graph/scene/celllegend.h"
#include "series/seriesstore.h"
#include "settings/viewstate.h"
#include "support/samplerecords.h"

#include <QWheelEvent>
#include <QtTest>

namespace {

using View = QByteArray;

constexpr int period = 10; // s between two records
constexpr int count = 87; // so that a pixel is a second, from 40 on
constexpr QSize size(1000, 600); // plots from 40 to 900, from 22 to 289 and from 304 to 571
constexpr QPoint upper(470, 155); // middle of the upper plot
constexpr QPoint lower(470, 437);

SeriesStore storeOf(RecordList records)
{
    SeriesStore store;
    store.load(std::move(records));
    return store;
}

QByteArray percent(const Interval &share)
{
    return ' ' + QByteArray::number(qRound(100 * share.low)) + ".."
        + QByteArray::number(qRound(100 * share.high));
}

} // namespace

/// Every step answers what is to be seen after it: the times that are shown (s) with the shares of the values
/// (upper plot, lower plot, in per cent), or "all"; the record of the cursor line, the one that the figures
/// are to show from now on, what is being picked, a closed hand, the picked cells, where there are any.
class TestGraphInteraction : public QObject {
    Q_OBJECT

public slots:
    void point(int record) { pointed = record; }

private slots:
    void init();
    void cleanup() { delete widget; }
    void pointing();
    void largeLetters();
    void picking();
    void wheel();
    void middleButton();
    void dragging();
    void legend();
    void moving();
    void zoomingByKeys();
    void pickingByKeys();
    void recordsThatCome();
    void heldView();
    void clockThatWasSetBack();
    void unevenTimes();
    void resizing();
    void fewRecordsAreSafe();

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        updated = updated || event->type() == QEvent::UpdateRequest;
        return false;
    }

private:
    View view();
    View mouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    View hover(QPoint at) { return mouse(QEvent::MouseMove, at, Qt::NoButton); }
    View press(Qt::MouseButton button, QPoint at) { return mouse(QEvent::MouseButtonPress, at, button); }
    View release(Qt::MouseButton button, QPoint at) { return mouse(QEvent::MouseButtonRelease, at, button); }
    View click(Qt::MouseButton button, QPoint at, Qt::KeyboardModifiers modifiers = {});
    View drag(Qt::MouseButton button, QPoint from, QPoint to);
    View turn(QPoint at, int steps, Qt::KeyboardModifiers modifiers = {}, bool sideways = false);
    View key(Qt::Key which, Qt::KeyboardModifiers modifiers = {});
    View add(int current = 0);
    void set(bool ViewSwitches::*flag, bool on = true);

    QWidget *widget = nullptr;
    GraphInteraction *interaction = nullptr;
    SeriesStore store;
    ViewState state;
    int pointed = -1; // in this step
    bool updated = false;
    View seen; // before
};

void TestGraphInteraction::init()
{
    widget = new QWidget;
    widget->show();
    widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(widget));
    widget->installEventFilter(this);
    store = storeOf(samples::lipoCharge(count, period));
    state.setSwitches({});
    interaction = new GraphInteraction(widget, &store, &state);
    interaction->resize(size, 1.0);
    connect(interaction, SIGNAL(recordPointedAt(int)), this, SLOT(point(int)));
    seen = "all";
    pointed = -1;
}

View TestGraphInteraction::view()
{
    const GraphZoom &zoom = interaction->zoom();
    View text = "all";
    if (zoom.isActive())
        text = View::number(zoom.times().low, 'g', 4) + ".." + View::number(zoom.times().high, 'g', 4)
            + percent(zoom.share(PlotArea::Upper)) + percent(zoom.share(PlotArea::Lower));
    if (interaction->cursorRecord() >= 0)
        text += " cursor " + View::number(interaction->cursorRecord());
    const QRect band = interaction->rubberBand();
    if (!band.isEmpty())
        for (const int end : {band.left(), band.top(), band.right(), band.bottom()})
            text += (end == band.left() ? " band " : " ") + View::number(end);
    const CellSelection &cells = interaction->cells()->cells();
    for (size_t cell = 0; cell < cells.size(); ++cell)
        text += cells[cell] ? " cell " + View::number(int(cell)) : View();
    QCoreApplication::sendPostedEvents();
    if (text != seen && !updated)
        text += ", not painted";
    updated = false;
    seen = text;
    if (widget->cursor().shape() == Qt::ClosedHandCursor)
        text += " hand";
    if (pointed >= 0)
        text += " shows " + View::number(pointed);
    pointed = -1;
    return text;
}

View TestGraphInteraction::mouse(
    QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const QMouseEvent event(type, at, button, button, modifiers);
    type == QEvent::MouseMove                ? interaction->move(&event)
        : type == QEvent::MouseButtonPress   ? interaction->press(&event)
        : type == QEvent::MouseButtonRelease ? interaction->release(&event)
                                             : interaction->doubleClick(&event);
    return view();
}

View TestGraphInteraction::click(Qt::MouseButton button, QPoint at, Qt::KeyboardModifiers modifiers)
{
    mouse(QEvent::MouseButtonPress, at, button, modifiers);
    return mouse(QEvent::MouseButtonRelease, at, button, modifiers);
}

View TestGraphInteraction::drag(Qt::MouseButton button, QPoint from, QPoint to)
{
    press(button, from);
    mouse(QEvent::MouseMove, to, button);
    return release(button, to);
}

View TestGraphInteraction::turn(QPoint at, int steps, Qt::KeyboardModifiers modifiers, bool sideways)
{
    const QPoint angle = sideways ? QPoint(120 * steps, 0) : QPoint(0, 120 * steps);
    const QWheelEvent event(at, at, QPoint(), angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    return interaction->wheel(&event) ? view() : View("no");
}

View TestGraphInteraction::key(Qt::Key which, Qt::KeyboardModifiers modifiers)
{
    const QKeyEvent event(QEvent::KeyPress, which, modifiers);
    return interaction->key(&event) ? view() : View("no");
}

View TestGraphInteraction::add(int current)
{
    Varnel3Data record = samples::lipoCharge(1)[0];
    record.current = current;
    record.setTime(store.records().last().time + period);
    store.append(record);
    interaction->dataArrived();
    widget->update(); // as the window does, sparingly
    return view();
}

void TestGraphInteraction::set(bool ViewSwitches::*flag, bool on)
{
    ViewSwitches switches = state.switches();
    switches.*flag = on;
    state.setSwitches(switches);
}

void TestGraphInteraction::pointing()
{
    const std::pair<QPoint, View> steps[] = {
        {{40, 100}, "all cursor 0 shows 0"},
        {{44, 100}, "all cursor 0 shows 0"},
        {{46, 100}, "all cursor 1 shows 1"},
        {{470, 500}, "all cursor 43 shows 43"},
        {{900, 100}, "all cursor 86 shows 86"},
        {{901, 100}, "all shows 86"}, // right of the plots the newest, without a line
        {{470, 100}, "all cursor 43 shows 43"},
        {{470, 600}, "all cursor 43"}, // outside: as it was
        {{39, 100}, "all"},
    };
    for (const auto &step : steps)
        QCOMPARE(hover(step.first), step.second);
    hover(upper);
    interaction->leave();
    QCOMPARE(view(), View("all shows 86"));
    widget->hide(); // not active
    QCOMPARE(press(Qt::LeftButton, upper), View("all"));
}

/// With larger letters the pointer means what is drawn under it.
void TestGraphInteraction::largeLetters()
{
    interaction->resize(size, 2.0); // plots from 40 to 400 of 500
    QCOMPARE(hover({442, 200}), View("all cursor 43 shows 43"));
    QCOMPARE(hover({802, 200}), View("all shows 86"));
    QCOMPARE(drag(Qt::LeftButton, {80, 44}, {440, 120}).left(13), View("0..430 68..10"));
    QCOMPARE(turn({440, 120}, -20), View("0..860 68..100 0..100 cursor 43 shows 43"));
    interaction->resize(size, 9.0); // as large as leaves the plots room: 333 x 200
    QCOMPARE(hover({702, 100}), View("0..860 68..100 0..100 shows 86"));
}

void TestGraphInteraction::picking()
{
    QCOMPARE(press(Qt::LeftButton, {470, 155}), View("all shows 43"));
    QCOMPARE(mouse(QEvent::MouseMove, {255, 88}, Qt::LeftButton), View("all band 255 88 470 155"));
    QCOMPARE(release(Qt::LeftButton, {255, 88}), View("215..430 50..75 0..100 cursor 27 shows 27"));
    // once more, inside what is shown, and never out of the plot that it began in
    press(Qt::LeftButton, {470, 500});
    QCOMPARE(mouse(QEvent::MouseMove, {990, 20}, Qt::LeftButton),
        View("215..430 50..75 0..100 band 470 304 900 500"));
    QCOMPARE(release(Qt::LeftButton, {990, 20}), View("322.5..430 50..75 27..100 shows 43"));
    QCOMPARE(mouse(QEvent::MouseButtonDblClick, lower, Qt::LeftButton), View("all cursor 43 shows 43"));
    // what is no selection
    for (const QPoint &to : {QPoint(0, 0), QPoint(200, 3), QPoint(3, 200)})
        QCOMPARE(drag(Qt::LeftButton, {100, 330}, QPoint(100, 330) + to).left(4), View("all "));
    QVERIFY(drag(Qt::LeftButton, {100, 330}, {104, 334}).startsWith("57..67 "));
    QCOMPARE(mouse(QEvent::MouseButtonDblClick, lower, Qt::RightButton).left(4), View("57.."));
    release(Qt::RightButton, lower);
    mouse(QEvent::MouseButtonDblClick, lower, Qt::LeftButton);
    QCOMPARE(drag(Qt::LeftButton, {20, 100}, {400, 200}), View("all cursor 36 shows 36"));
    QCOMPARE(
        drag(Qt::LeftButton, {470, 295}, {600, 400}), View("all cursor 56 shows 56")); // between the plots
    // given up half way
    press(Qt::LeftButton, upper);
    QVERIFY(mouse(QEvent::MouseMove, {500, 200}, Qt::LeftButton).contains("band"));
    QCOMPARE(key(Qt::Key_Escape), View("all cursor 43"));
    QCOMPARE(release(Qt::LeftButton, {500, 200}), View("all cursor 46 shows 46"));
    press(Qt::LeftButton, upper);
    interaction->resize(size, 1.0);
    QCOMPARE(release(Qt::LeftButton, {600, 200}), View("all cursor 56 shows 56"));
}

void TestGraphInteraction::wheel()
{
    const QPoint at(255, 155); // 215 s
    QCOMPARE(turn(at, 1), View("43..731 0..100 0..100 cursor 22 shows 22"));
    QCOMPARE(turn(at, 1, Qt::ControlModifier), View("43..731 10..90 0..100 cursor 22 shows 22"));
    QCOMPARE(turn(at, -1, Qt::ControlModifier), View("43..731 0..100 0..100 cursor 22 shows 22"));
    QCOMPARE(turn(lower, 1, Qt::ControlModifier), View("43..731 0..100 10..90 cursor 39 shows 39"));
    QCOMPARE(turn(lower, -1, Qt::ControlModifier | Qt::AltModifier, true),
        View("43..731 0..100 0..100 cursor 39 shows 39"));
    QCOMPARE(turn(at, -3), View("all cursor 22 shows 22"));
    QCOMPARE(
        turn(at, 100), View("212.5..222.5 0..100 0..100 cursor 22 shows 22")); // the axis divides in seconds
    QCOMPARE(turn(at, 0), View("no"));
    QCOMPARE(turn({10, 10}, 1), View("no"));
}

void TestGraphInteraction::middleButton()
{
    QCOMPARE(click(Qt::MiddleButton, lower, Qt::ControlModifier), View("all cursor 43 shows 43"));
    QCOMPARE(click(Qt::MiddleButton, lower), View("215..645 0..100 25..75 cursor 43 shows 43"));
    QCOMPARE(click(Qt::MiddleButton, lower), View("322.5..537.5 0..100 38..63 cursor 43 shows 43"));
    QCOMPARE(click(Qt::MiddleButton, lower, Qt::ControlModifier),
        View("215..645 0..100 25..75 cursor 43 shows 43"));
    QCOMPARE(
        click(Qt::MiddleButton, {20, 400}), View("215..430 0..100 25..75")); // beside the plots: times only
    click(Qt::MiddleButton, {470, 295}, Qt::ControlModifier);
    QCOMPARE(click(Qt::MiddleButton, lower, Qt::ControlModifier), View("all cursor 43 shows 43"));
    widget->hide();
    QCOMPARE(release(Qt::MiddleButton, lower), View("all cursor 43 shows 43"));
}

void TestGraphInteraction::dragging()
{
    QCOMPARE(press(Qt::RightButton, upper), View("all cursor 43 shows 43")); // all is there
    QCOMPARE(mouse(QEvent::MouseMove, {570, 155}, Qt::RightButton), View("all cursor 43"));
    release(Qt::RightButton, upper);
    click(Qt::MiddleButton, upper);
    QCOMPARE(press(Qt::RightButton, upper), View("215..645 25..75 0..100 cursor 43 hand shows 43"));
    QCOMPARE(
        mouse(QEvent::MouseMove, {556, 155}, Qt::RightButton), View("172..602 25..75 0..100 cursor 43 hand"));
    QCOMPARE(
        mouse(QEvent::MouseMove, {556, 208}, Qt::RightButton), View("172..602 35..85 0..100 cursor 43 hand"));
    QCOMPARE(release(Qt::RightButton, {556, 208}), View("172..602 35..85 0..100 cursor 43 shows 43"));
    // never past the recording
    QVERIFY(drag(Qt::RightButton, upper, upper + QPoint(800, 600)).startsWith("0..430 50..100 0..100"));
    QVERIFY(drag(Qt::RightButton, upper, upper - QPoint(1800, 600)).startsWith("430..860 0..50 0..100"));
    press(Qt::RightButton, upper);
    interaction->leave();
    QCOMPARE(view(), View("430..860 0..50 0..100 shows 86"));
}

void TestGraphInteraction::legend()
{
    const CellLegend rows(GraphLayout(size, count), 6);
    const auto pick = [&](int cell, Qt::KeyboardModifiers modifiers = {}) {
        return click(Qt::LeftButton, rows.row(cell).center(), modifiers);
    };
    QCOMPARE(pick(1), View("all shows 86")); // there are no cells to be seen
    set(&ViewSwitches::balancer);
    QCOMPARE(pick(1), View("all cell 1 shows 86"));
    QCOMPARE(pick(4), View("all cell 4 shows 86"));
    QCOMPARE(pick(0, Qt::ControlModifier), View("all cell 0 cell 4 shows 86"));
    QCOMPARE(pick(4, Qt::ControlModifier), View("all cell 0 shows 86"));
    QCOMPARE(click(Qt::LeftButton, {941, 100}), View("all cell 0 shows 86")); // left of the column
    QCOMPARE(click(Qt::LeftButton, {942, 280}), View("all shows 86")); // below the rows
    turn(upper, 1);
    const View before = pick(2);
    QCOMPARE(mouse(QEvent::MouseButtonDblClick, rows.row(2).center(), Qt::LeftButton) + " shows 77", before);
    set(&ViewSwitches::average); // nor are there any
    QCOMPARE(pick(1), before);
}

void TestGraphInteraction::moving()
{
    QCOMPARE(key(Qt::Key_Left), View("all cursor 86 shows 86")); // begins with what the displays show
    QCOMPARE(key(Qt::Key_Left), View("all cursor 85 shows 85"));
    QCOMPARE(key(Qt::Key_Left, Qt::ShiftModifier), View("all cursor 84 shows 84"));
    QCOMPARE(key(Qt::Key_Right), View("all cursor 85 shows 85"));
    QCOMPARE(key(Qt::Key_Escape), View("all shows 86"));
    QCOMPARE(key(Qt::Key_Right), View("all cursor 0 shows 0"));
    key(Qt::Key_Escape);
    drag(Qt::LeftButton, {124, 22}, {813, 289});
    QVERIFY(key(Qt::Key_Home).startsWith("all "));
    key(Qt::Key_Escape);
    click(Qt::MiddleButton, {472, 400}); // 216..646
    click(Qt::MiddleButton, {472, 100}, Qt::ControlModifier);
    click(Qt::MiddleButton, {472, 100});
    interaction->leave();
    QCOMPARE(view().left(8), View("216..646"));
    QVERIFY(key(Qt::Key_Left).endsWith("cursor 64 shows 64")); // what lies outside stays there
    key(Qt::Key_Escape);
    QVERIFY(key(Qt::Key_Right).endsWith("cursor 22 shows 22"));
    QVERIFY(key(Qt::Key_Left).startsWith("210..640 ")); // up to where it goes
    for (int i = 0; i < 42; ++i)
        key(Qt::Key_Right);
    QVERIFY(key(Qt::Key_Right).startsWith("210..640 "));
    QVERIFY(key(Qt::Key_Right).startsWith("220..650 "));
    QCOMPARE(key(Qt::Key_F1), View("no"));
}

void TestGraphInteraction::zoomingByKeys()
{
    QCOMPARE(key(Qt::Key_Plus), View("86..774 0..100 0..100"));
    QCOMPARE(key(Qt::Key_Equal), View("154.8..705.2 0..100 0..100"));
    key(Qt::Key_Minus);
    QCOMPARE(key(Qt::Key_Minus), View("all"));
    key(Qt::Key_PageDown);
    QCOMPARE(key(Qt::Key_Plus, Qt::ControlModifier), View("0..860 0..100 10..90"));
    QCOMPARE(key(Qt::Key_Down), View("0..860 0..100 2..82"));
    QCOMPARE(key(Qt::Key_Up), View("0..860 0..100 10..90"));
    key(Qt::Key_PageUp);
    QCOMPARE(key(Qt::Key_Plus, Qt::ControlModifier), View("0..860 10..90 10..90"));
    QCOMPARE(key(Qt::Key_Minus, Qt::ControlModifier), View("0..860 0..100 10..90"));
    key(Qt::Key_Plus);
    QCOMPARE(key(Qt::Key_Right, Qt::ControlModifier), View("154.8..842.8 0..100 10..90"));
    QCOMPARE(key(Qt::Key_Left, Qt::ControlModifier), View("86..774 0..100 10..90"));
    QCOMPARE(key(Qt::Key_Home), View("all"));
    hover({255, 100}); // 215 s, where the zoom then stays
    QCOMPARE(key(Qt::Key_Plus), View("44..732 0..100 0..100 cursor 22"));
}

void TestGraphInteraction::pickingByKeys()
{
    key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(view(), View("all")); // there are no cells to be seen
    set(&ViewSwitches::balancer);
    QCOMPARE(key(Qt::Key_Up, Qt::ControlModifier), View("all cell 5")); // from the end
    QCOMPARE(key(Qt::Key_Down, Qt::ControlModifier), View("all cell 0"));
    QCOMPARE(key(Qt::Key_Down, Qt::ControlModifier), View("all cell 1"));
    QCOMPARE(key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier), View("all cell 0 cell 1"));
    QCOMPARE(key(Qt::Key_Up, Qt::ControlModifier), View("all cell 5"));
    click(Qt::LeftButton, CellLegend(GraphLayout(size, count), 6).row(3).center());
    QCOMPARE(key(Qt::Key_Down, Qt::ControlModifier), View("all cell 4"));
    QCOMPARE(key(Qt::Key_Escape), View("all"));
    QCOMPARE(key(Qt::Key_Down, Qt::ControlModifier), View("all cell 0"));
}

void TestGraphInteraction::recordsThatCome()
{
    turn(upper, 3);
    press(Qt::LeftButton, upper);
    QCOMPARE(add(), View("all"));
    QCOMPARE(release(Qt::LeftButton, {800, 250}), View("all cursor 77 shows 77")); // the picking had ended
    turn(upper, 3);
    press(Qt::RightButton, upper);
    QCOMPARE(add(), View("all"));
}

void TestGraphInteraction::heldView()
{
    set(&ViewSwitches::holdView);
    add();
    turn(upper, 3); // 212..652 of 870 s
    const View held = key(Qt::Key_Left);
    QVERIFY(held.endsWith(" cursor 43 shows 43"));
    QCOMPARE(interaction->rangedRecords(), 0);
    QCOMPARE(add(9000) + " shows 43", held);
    QCOMPARE(interaction->rangedRecords(), 88); // as many as the axes were made for
    add();
    QCOMPARE(interaction->rangedRecords(), 88);
    for (int i = 0; i < 10; ++i)
        key(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(interaction->rangedRecords(), 90); // what is in sight has its place
    key(Qt::Key_Home);
    QCOMPARE(interaction->rangedRecords(), 0);
    add();
    turn(upper, 3);
    add();
    QCOMPARE(interaction->rangedRecords(), 91);
    Varnel3Data record = store.records().last();
    record.setTime(0);
    store.append(record); // with a clock that was set back no time parts the records
    QCOMPARE(interaction->rangedRecords(), 0);
    set(&ViewSwitches::holdView, false);
    QVERIFY(interaction->zoom().isActive());
    QCOMPARE(add(), View("all"));
}

// A part of the recording, and then all of it once more: 0..290, 0..560.
void TestGraphInteraction::clockThatWasSetBack()
{
    RecordList records = samples::lipoCharge(count, period);
    for (int i = 0; i < count; ++i)
        records[i].setTime((i < 30 ? i : i - 30) * period);
    store = storeOf(std::move(records));
    QCOMPARE(hover({470, 100}), View("all cursor 28 shows 28")); // the first of two
    QVERIFY(hover({685, 100}).endsWith(" shows 72"));
    drag(Qt::LeftButton, {685, 50}, {900, 270}); // 420..560
    QVERIFY(hover({470, 100}).endsWith(" shows 79"));
    QVERIFY(key(Qt::Key_Left).endsWith(" shows 78"));
    mouse(QEvent::MouseButtonDblClick, {470, 100}, Qt::LeftButton);
    for (const char *record : {"29", "30", "31"}) // from one course into the other: along the records
        QCOMPARE(key(Qt::Key_Right), View("all cursor ") + record + " shows " + record);
    key(Qt::Key_Left);
    QCOMPARE(key(Qt::Key_Left), View("all cursor 29 shows 29"));
}

// Many records to a pixel, and few.
void TestGraphInteraction::unevenTimes()
{
    RecordList records = samples::lipoCharge(1000, 1);
    for (int i = 0; i < 1000; ++i)
        records[i].setTime(i < 900 ? i : 900 + 86 * (i - 899)); // 9500 s: 11 s a pixel, then a record every 8
    store = storeOf(std::move(records));
    hover({42, 100});
    hover({41, 100});
    QCOMPARE(key(Qt::Key_Right), View("all cursor 17 shows 17")); // the next pixel's first one
    QCOMPARE(key(Qt::Key_Right, Qt::ShiftModifier), View("all cursor 128 shows 128"));
    QCOMPARE(key(Qt::Key_Left), View("all cursor 127 shows 127"));
    QCOMPARE(hover({899, 100}), View("all cursor 999 shows 999"));
    QCOMPARE(key(Qt::Key_Left, Qt::ShiftModifier), View("all cursor 998 shows 998"));
    QCOMPARE(key(Qt::Key_Right), View("all cursor 999 shows 999"));
    QCOMPARE(key(Qt::Key_Right), View("all cursor 999 shows 999"));
}

void TestGraphInteraction::resizing()
{
    drag(Qt::LeftButton, {298, 50}, {645, 270}); // 258..605
    interaction->resize({451, 400}, 1.0);
    QCOMPARE(view().left(8), View("250..650")); // in at most eight steps
    interaction->resize({449, 400}, 1.0);
    QCOMPARE(view().left(8), View("200..700")); // four
    for (int height : {300, 310, 320}) // 500 s are not four steps, 600 are
        interaction->resize({449, height}, 1.0);
    QCOMPARE(view().left(8), View("200..800"));
    key(Qt::Key_Home);
    interaction->resize(size, 1.0);
    drag(Qt::LeftButton, {50, 50}, {895, 270});
    interaction->resize({451, 400}, 1.0);
    QCOMPARE(view().left(7), View("0..860 ")); // nor beyond the recording
}

void TestGraphInteraction::fewRecordsAreSafe()
{
    for (int records = 0; records < 3; ++records) {
        store = storeOf(samples::lipoCharge(records));
        interaction->startAnew();
        interaction->resize(size, 1.0);
        view();
        const bool none = records == 0;
        QCOMPARE(hover(upper),
            none              ? View("all")
                : records < 2 ? View("all cursor 0 shows 0")
                              : View("all cursor 1 shows 1"));
        QCOMPARE(turn(upper, 3) == "no", none);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
            drag(button, upper, upper + QPoint(100, 100));
        for (const Qt::Key which :
            {Qt::Key_Left, Qt::Key_Right, Qt::Key_Plus, Qt::Key_Up, Qt::Key_Home, Qt::Key_Escape})
            QCOMPARE(key(which) == "no", none);
        interaction->leave();
        QCOMPARE(view().contains("shows"), !none);
        interaction->resize({60, 40}, 1.0); // no room for plots
        QVERIFY(!hover({41, 23}).contains("cursor"));
    }
}

QTEST_MAIN(TestGraphInteraction)
#include "tst_graphinteraction.moc"
