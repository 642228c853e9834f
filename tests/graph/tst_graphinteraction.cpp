#include "graph/scene/celllegend.h"
#include "support/fakegraphhost.h"
#include "graph/scene/graphlayout.h"
#include "graph/mdigraphchild.h"
#include "support/samplerecords.h"

#include <QWheelEvent>
#include <QtTest>

namespace {

constexpr int period = 10; // s between two records; with 87 of them a record stands every ten pixels
constexpr int count = 87;

} // namespace

class TestGraphInteraction : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void hoveringShowsTheRecord_data();
    void hoveringShowsTheRecord();
    void largeLettersMoveThePlots();
    void otherWindowsAreLeftAlone();
    void leavingShowsTheNewest();
    void rectangleZooms();
    void zoomingPointsAnew();
    void rectangleStaysInItsPlot();
    void smallRectangleIsNoZoom_data();
    void smallRectangleIsNoZoom();
    void wheelZoomsAroundThePointer();
    void middleButtonSteps();
    void rightDragMoves();
    void doubleClickShowsAll();
    void dataShowsAll();
    void heldViewStays();
    void clockThatWasSetBack();
    void legendPicksCells();
    void keysDoWhatTheMouseDoes();
    void resizeDividesAnew();
    void fewRecordsAreSafe_data();
    void fewRecordsAreSafe();

private:
    void load(RecordList records)
    {
        SeriesStore store;
        store.load(std::move(records));
        child->load(std::move(store), QStringLiteral("x.acp"));
    }
    GraphLayout layout() const { return {child->size(), child->store().size()}; }
    QPoint in(PlotArea area, double right, double down) const;
    void hover(const QPoint &position);
    void drag(Qt::MouseButton button, const QPoint &from, const QPoint &to);
    void wheel(const QPoint &position, int steps, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    GraphZoom zoom() const { return child->picture(child->size()).zoom; }
    int lastShownTime() const { return host->shown.isEmpty() ? -1 : host->shown.last().record.time; }

    FakeGraphHost *host = nullptr;
    MdiGraphChild *child = nullptr;
};

void TestGraphInteraction::init()
{
    host = new FakeGraphHost;
    child = new MdiGraphChild(host);
    child->resize(1000, 600); // plots from 40 to 900
    child->setWindowNumber(3);
    child->show();
    child->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(child));
    load(samples::lipoCharge(count, period));
    host->current = child;
}

void TestGraphInteraction::cleanup()
{
    delete child;
    delete host;
}

QPoint TestGraphInteraction::in(PlotArea area, double right, double down) const
{
    const QRect rect = layout().area(area);
    return {
        rect.left() + qRound((rect.width() - 1) * right), rect.top() + qRound((rect.height() - 1) * down)};
}

// From elsewhere, because a pointer that stays where it is sends nothing.
void TestGraphInteraction::hover(const QPoint &position)
{
    QTest::mouseMove(child, QPoint(20, 20));
    QTest::mouseMove(child, position);
    QCoreApplication::processEvents();
}

void TestGraphInteraction::drag(Qt::MouseButton button, const QPoint &from, const QPoint &to)
{
    QTest::mousePress(child, button, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, child->mapToGlobal(to), Qt::NoButton, button, Qt::NoModifier);
    QApplication::sendEvent(child, &move);
    QTest::mouseRelease(child, button, Qt::NoModifier, to);
}

void TestGraphInteraction::wheel(const QPoint &position, int steps, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(position, child->mapToGlobal(position), QPoint(), QPoint(0, 120 * steps), Qt::NoButton,
        modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(child, &event);
}

void TestGraphInteraction::hoveringShowsTheRecord_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("time");
    QTest::newRow("first") << QPoint(40, 100) << 0;
    QTest::newRow("next to it") << QPoint(44, 100) << 0;
    QTest::newRow("nearer to the second") << QPoint(46, 100) << period;
    QTest::newRow("in the lower plot") << QPoint(470, 500) << 43 * period;
    QTest::newRow("last") << QPoint(900, 100) << 86 * period;
    QTest::newRow("right of the plots") << QPoint(960, 100) << 86 * period;
    QTest::newRow("left of the plots") << QPoint(39, 100) << -1;
}

void TestGraphInteraction::hoveringShowsTheRecord()
{
    QFETCH(QPoint, position);
    QFETCH(int, time);
    hover(position);
    QCOMPARE(lastShownTime(), time);
}

/// With larger letters the pointer means what is drawn under it.
void TestGraphInteraction::largeLettersMoveThePlots()
{
    child->setScale(2.0);
    const GraphLayout drawn(child->size() / 2, count);
    const QRect upper = drawn.area(PlotArea::Upper);
    hover(2 * upper.center());
    QCOMPARE(lastShownTime(), 43 * period);
    drag(Qt::LeftButton, 2 * upper.topLeft(), 2 * upper.center());
    QCOMPARE(qRound(zoom().times().high / period), 43);
    const QImage large = child->grab().toImage();
    QCOMPARE(large.pixelColor(20, 2 * (drawn.height() - 1 - 20)), QColor(Qt::yellow)); // the badge, of 10 px
    QCOMPARE(GraphLayout::fittingScale(child->size(), 9.0), 3.0); // what leaves the plots room
}

void TestGraphInteraction::otherWindowsAreLeftAlone()
{
    host->current = nullptr;
    hover(in(PlotArea::Upper, 0.5, 0.5));
    QTest::mouseClick(child, Qt::LeftButton, Qt::NoModifier, in(PlotArea::Upper, 0.6, 0.5));
    QVERIFY(host->shown.isEmpty());
}

void TestGraphInteraction::leavingShowsTheNewest()
{
    hover(in(PlotArea::Upper, 0.5, 0.5));
    QCOMPARE(lastShownTime(), 43 * period);
    // the charge is the newest one's, whatever the record
    QCOMPARE(host->shown.last().record.balancedMah, 40);
    const QImage with = child->grab().toImage();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(child, &leave);
    QCOMPARE(lastShownTime(), 86 * period);
    QVERIFY(!host->shown.last().useKeptRi);
    QVERIFY(child->grab().toImage() != with); // the cursor line has gone
}

void TestGraphInteraction::rectangleZooms()
{
    drag(Qt::LeftButton, in(PlotArea::Upper, 0.75, 0.5), in(PlotArea::Upper, 0.25, 0.25));
    QVERIFY(zoom().isActive());
    QCOMPARE(zoom().times().low, 215.0);
    QCOMPARE(zoom().times().high, 645.0);
    QVERIFY(qAbs(zoom().share(PlotArea::Upper).low - 0.5) < 0.005);
    QVERIFY(qAbs(zoom().share(PlotArea::Upper).high - 0.75) < 0.005);
    QCOMPARE(zoom().share(PlotArea::Lower).length(), 1.0);
    // once more, inside what is shown
    drag(Qt::LeftButton, in(PlotArea::Lower, 0.0, 0.0), in(PlotArea::Lower, 0.5, 0.5));
    QCOMPARE(zoom().times().high, 430.0);
    QVERIFY(qAbs(zoom().share(PlotArea::Lower).low - 0.5) < 0.005);
    QVERIFY(qAbs(zoom().share(PlotArea::Upper).high - 0.75) < 0.005);
    hover(in(PlotArea::Lower, 1.0, 0.5));
    QCOMPARE(lastShownTime(), 430);
}

// The pointer rests while what lies under it changes.
void TestGraphInteraction::zoomingPointsAnew()
{
    const QPoint at = in(PlotArea::Upper, 0.3, 0.5); // at 258 s
    drag(Qt::LeftButton, at + QPoint(0, 50), at + QPoint(86, 100)); // shows ten pixels a second
    QCOMPARE(lastShownTime(), 290);
    QTest::mouseDClick(child, Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(lastShownTime(), 260);
    wheel(in(PlotArea::Upper, 1.0, 0.5), 1);
    QCOMPARE(lastShownTime(), 860);
}

void TestGraphInteraction::rectangleStaysInItsPlot()
{
    const QPoint start = in(PlotArea::Upper, 0.5, 0.5);
    QTest::mousePress(child, Qt::LeftButton, Qt::NoModifier, start);
    QMouseEvent move(
        QEvent::MouseMove, QPoint(990, 590), QPoint(), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(child, &move);
    const QRect lower = layout().area(PlotArea::Lower);
    const QImage with = child->grab().toImage();
    QTest::mouseRelease(child, Qt::LeftButton, Qt::NoModifier, QPoint(990, 590));
    QCOMPARE(zoom().times().high, 860.0);
    QVERIFY(zoom().share(PlotArea::Upper).low < 0.001);
    load(samples::lipoCharge(count, period));
    QCOMPARE(with.copy(lower), child->grab().toImage().copy(lower)); // nothing was drawn there
}

void TestGraphInteraction::smallRectangleIsNoZoom_data()
{
    QTest::addColumn<QPoint>("size");
    QTest::addColumn<bool>("zooms");
    QTest::newRow("click") << QPoint(0, 0) << false;
    QTest::newRow("flat") << QPoint(200, 3) << false;
    QTest::newRow("thin") << QPoint(3, 200) << false;
    QTest::newRow("just enough") << QPoint(4, 4) << true;
    QTest::newRow("backwards") << QPoint(-4, -4) << true;
}

void TestGraphInteraction::smallRectangleIsNoZoom()
{
    QFETCH(QPoint, size);
    const QPoint start = in(PlotArea::Lower, 0.4, 0.2);
    drag(Qt::LeftButton, start, start + size);
    QTEST(zoom().isActive(), "zooms");
}

void TestGraphInteraction::wheelZoomsAroundThePointer()
{
    const QPoint at = in(PlotArea::Upper, 0.25, 0.5);
    wheel(at, 1);
    QCOMPARE(zoom().times().length(), 860.0 / 1.25);
    QCOMPARE(zoom().times().low + zoom().times().length() * 0.25, 215.0);
    QCOMPARE(zoom().share(PlotArea::Upper).length(), 1.0);
    wheel(at, 1, Qt::ControlModifier);
    QCOMPARE(zoom().share(PlotArea::Upper).length(), 0.8);
    QCOMPARE(zoom().share(PlotArea::Lower).length(), 1.0);
    QCOMPARE(zoom().times().length(), 860.0 / 1.25);
    wheel(at, -1, Qt::ControlModifier);
    wheel(at, -3);
    QVERIFY(!zoom().isActive());
    wheel(at, 100);
    QCOMPARE(zoom().times().length(), 10.0); // no further: the axis divides in seconds
    wheel(QPoint(10, 10), -3); // outside the plots
    QCOMPARE(zoom().times().length(), 10.0);
}

void TestGraphInteraction::middleButtonSteps()
{
    const QPoint at = in(PlotArea::Lower, 0.5, 0.5);
    QTest::mouseClick(child, Qt::MiddleButton, Qt::ControlModifier, at);
    QVERIFY(!zoom().isActive());
    QTest::mouseClick(child, Qt::MiddleButton, Qt::NoModifier, at);
    QCOMPARE(zoom().times().length(), 430.0);
    QTest::mouseClick(child, Qt::MiddleButton, Qt::NoModifier, at);
    QCOMPARE(zoom().times().length(), 215.0);
    QVERIFY(qAbs((zoom().times().low + zoom().times().high) / 2 - 430) < 1);
    QCOMPARE(zoom().share(PlotArea::Lower).length(), 0.25);
    QTest::mouseClick(child, Qt::MiddleButton, Qt::ControlModifier, at);
    QCOMPARE(zoom().times().length(), 430.0);
    QTest::mouseClick(child, Qt::MiddleButton, Qt::ControlModifier, at);
    QVERIFY(!zoom().isActive());
}

void TestGraphInteraction::rightDragMoves()
{
    const QPoint middle = in(PlotArea::Upper, 0.5, 0.5);
    drag(Qt::RightButton, middle, middle + QPoint(100, 0));
    QVERIFY(!zoom().isActive());
    QTest::mouseClick(child, Qt::MiddleButton, Qt::NoModifier, middle); // 215..645
    QTest::mousePress(child, Qt::RightButton, Qt::NoModifier, middle);
    QCOMPARE(child->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(child, Qt::RightButton, Qt::NoModifier, middle);
    QCOMPARE(child->cursor().shape(), Qt::ArrowCursor);
    drag(Qt::RightButton, middle, middle + QPoint(86, 0));
    QCOMPARE(zoom().times().low, 172.0);
    QCOMPARE(zoom().times().length(), 430.0);
    drag(Qt::RightButton, middle, middle + QPoint(800, 600)); // never past the recording
    QCOMPARE(zoom().times().low, 0.0);
    QCOMPARE(zoom().share(PlotArea::Upper).high, 1.0);
    drag(Qt::RightButton, middle, middle - QPoint(1800, 600));
    QCOMPARE(zoom().times().high, 860.0);
    QCOMPARE(zoom().share(PlotArea::Upper).low, 0.0);
}

void TestGraphInteraction::doubleClickShowsAll()
{
    wheel(in(PlotArea::Upper, 0.5, 0.5), 3);
    QVERIFY(zoom().isActive());
    QTest::mouseDClick(child, Qt::LeftButton, Qt::NoModifier, in(PlotArea::Lower, 0.5, 0.5));
    QVERIFY(!zoom().isActive());
}

void TestGraphInteraction::dataShowsAll()
{
    wheel(in(PlotArea::Upper, 0.5, 0.5), 3);
    QTest::mousePress(child, Qt::LeftButton, Qt::NoModifier, in(PlotArea::Upper, 0.5, 0.5));
    child->addRecord(samples::lipoCharge(1)[0]);
    QVERIFY(!zoom().isActive());
    QTest::mouseRelease(child, Qt::LeftButton, Qt::NoModifier, in(PlotArea::Upper, 0.9, 0.9));
    QVERIFY(!zoom().isActive()); // the selection had ended
}

void TestGraphInteraction::heldViewStays()
{
    const QPoint middle = in(PlotArea::Upper, 0.5, 0.5);
    const auto add = [this] {
        Varnel3Data record = samples::lipoCharge(1)[0];
        record.current = 9000; // far beyond the axis
        record.setTime(child->store().records().last().time + period);
        child->addRecord(record);
    };
    const auto hold = [this](bool held) {
        ViewSwitches switches;
        switches.holdView = held;
        host->state->setSwitches(switches);
    };
    hold(true);
    wheel(middle, 3);
    const Interval shown = zoom().times();
    QTest::keyClick(child, Qt::Key_Left); // the pointer is at 430 s
    QCOMPARE(lastShownTime(), 420);
    const QRect plots(0, 22, 940, 570); // with their axes
    const QImage before = child->grab().toImage().copy(plots);
    add();
    QCOMPARE(child->grab().toImage().copy(plots), before);
    QCOMPARE(zoom().times().low, shown.low);
    QCOMPARE(zoom().times().high, shown.high);
    QTest::keyClick(child, Qt::Key_Left);
    QCOMPARE(lastShownTime(), 410); // the cursor was there still
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(child, Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(child->picture(child->size()).rangedRecords, count + 1); // what is in sight has its place
    hold(false);
    QVERIFY(zoom().isActive());
    add();
    QVERIFY(!zoom().isActive());
}

// Half of the recording, and then it once more.
void TestGraphInteraction::clockThatWasSetBack()
{
    RecordList records = samples::lipoCharge(count, period);
    for (int i = 0; i < count; ++i)
        records[i].setTime((i < 30 ? i : i - 30) * period);
    load(std::move(records)); // 0..290, 0..560
    hover(in(PlotArea::Upper, 0.5, 0.5));
    QCOMPARE(lastShownTime(), 280);
    drag(Qt::LeftButton, in(PlotArea::Upper, 0.75, 0.1), in(PlotArea::Upper, 1.0, 0.9)); // 420..560
    hover(in(PlotArea::Upper, 0.5, 0.5));
    QCOMPARE(lastShownTime(), 490);
    QTest::keyClick(child, Qt::Key_Left);
    QCOMPARE(lastShownTime(), 480);
    QTest::mouseDClick(child, Qt::LeftButton, Qt::NoModifier, in(PlotArea::Upper, 0.5, 0.5));
    for (int time : {290, 0, 10}) { // from one course into the other: along the records
        QTest::keyClick(child, Qt::Key_Right);
        QCOMPARE(lastShownTime(), time);
    }
    QTest::keyClick(child, Qt::Key_Left);
    QTest::keyClick(child, Qt::Key_Left);
    QCOMPARE(lastShownTime(), 290);
}

void TestGraphInteraction::legendPicksCells()
{
    const auto rowCentre = [this](int cell) { return CellLegend(layout(), 6).row(cell).center(); };
    const auto click = [this](const QPoint &at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(child, Qt::LeftButton, modifiers, at);
        QString picked;
        for (bool cell : child->selectedCells())
            picked += QLatin1Char(cell ? '1' : '0');
        return picked;
    };
    QSignalSpy changes(child, SIGNAL(selectedCellsChanged()));
    QCOMPARE(click(rowCentre(1)), QStringLiteral("0000000000000000")); // there are no cells to be seen
    ViewSwitches switches;
    switches.balancer = true;
    host->state->setSwitches(switches);
    QCOMPARE(click(rowCentre(1)), QStringLiteral("0100000000000000"));
    QCOMPARE(click(rowCentre(4)), QStringLiteral("0000100000000000"));
    QCOMPARE(click(rowCentre(0), Qt::ControlModifier), QStringLiteral("1000100000000000"));
    QCOMPARE(click(rowCentre(4), Qt::ControlModifier), QStringLiteral("1000000000000000"));
    QCOMPARE(changes.size(), 4);
    QCOMPARE(click(QPoint(960, 280)), QStringLiteral("0000000000000000")); // below the rows
    QCOMPARE(click(QPoint(941, 100)), QStringLiteral("0000000000000000")); // one pixel left of the column
    QVERIFY(!zoom().isActive());
}

void TestGraphInteraction::keysDoWhatTheMouseDoes()
{
    const auto key = [this](Qt::Key which, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(child, which, modifiers);
    };
    key(Qt::Key_Left);
    QCOMPARE(lastShownTime(), 860); // begins with what the displays show
    key(Qt::Key_Left);
    key(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(lastShownTime(), 840);
    key(Qt::Key_Right);
    QCOMPARE(lastShownTime(), 850);
    key(Qt::Key_Escape);
    QCOMPARE(lastShownTime(), 860);
    key(Qt::Key_Right);
    QCOMPARE(lastShownTime(), 0);
    key(Qt::Key_Escape);
    key(Qt::Key_Plus);
    const Interval shown = zoom().times();
    key(Qt::Key_Left);
    QCOMPARE(lastShownTime(), int(shown.high) / period * period); // what lies outside stays there
    key(Qt::Key_Escape);
    key(Qt::Key_Right);
    QCOMPARE(lastShownTime(), int(shown.low) / period * period + period);
    QCOMPARE(zoom().times().low, shown.low);
    key(Qt::Key_Home);
    key(Qt::Key_Escape);
    key(Qt::Key_Plus);
    QCOMPARE(zoom().times().length(), 860.0 / 1.25);
    key(Qt::Key_Minus);
    QVERIFY(!zoom().isActive());
    key(Qt::Key_PageDown);
    key(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(zoom().share(PlotArea::Lower).length(), 0.8);
    QCOMPARE(zoom().share(PlotArea::Upper).length(), 1.0);
    const double low = zoom().share(PlotArea::Lower).low;
    key(Qt::Key_Down);
    QVERIFY(zoom().share(PlotArea::Lower).low < low);
    key(Qt::Key_Plus);
    const double from = zoom().times().low;
    key(Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(zoom().times().low > from);
    key(Qt::Key_Home);
    QVERIFY(!zoom().isActive());
    key(Qt::Key_Escape);
    QCOMPARE(lastShownTime(), 860);

    ViewSwitches switches;
    switches.balancer = true;
    host->state->setSwitches(switches);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Down, Qt::ControlModifier);
    QVERIFY(!child->selectedCells()[0] && child->selectedCells()[1]);
    key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(child->selectedCells()[0] && child->selectedCells()[1]);
    key(Qt::Key_Escape);
    QCOMPARE(child->selectedCells(), CellSelection{});
}

void TestGraphInteraction::resizeDividesAnew()
{
    drag(Qt::LeftButton, in(PlotArea::Upper, 0.3, 0.1), in(PlotArea::Upper, 0.703, 0.9));
    QVERIFY(zoom().times().low > 240 && zoom().times().low < 270);
    child->resize(449, 400);
    QVERIFY(zoom().isActive());
    // 258..604.5 in at most four steps
    QCOMPARE(zoom().times().low, 200.0);
    QCOMPARE(zoom().times().high, 700.0);
    child->resize(449, 300);
    QCOMPARE(zoom().times().low, 200.0); // it does not creep
}

void TestGraphInteraction::fewRecordsAreSafe_data()
{
    QTest::addColumn<int>("records");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("two") << 2;
}

void TestGraphInteraction::fewRecordsAreSafe()
{
    QFETCH(int, records);
    load(samples::lipoCharge(records));
    const QPoint middle = in(PlotArea::Upper, 0.5, 0.5);
    hover(middle);
    wheel(middle, 3);
    drag(Qt::LeftButton, middle, middle + QPoint(100, 100));
    drag(Qt::RightButton, middle, middle + QPoint(100, 100));
    QTest::mouseClick(child, Qt::MiddleButton, Qt::NoModifier, middle);
    for (int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Plus, Qt::Key_Up, Qt::Key_Home, Qt::Key_Escape})
        QTest::keyClick(child, Qt::Key(key));
    child->grab();
    child->resize(60, 40);
    hover(QPoint(30, 20));
    child->grab();
    QVERIFY(records > 1 || !zoom().isActive());
}

QTEST_MAIN(TestGraphInteraction)
#include "tst_graphinteraction.moc"
