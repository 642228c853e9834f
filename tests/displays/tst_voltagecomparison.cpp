#include "displays/voltagecomparison.h"

#include "displays/samplepack.h"
#include "displays/voltagecanvas.h"
#include "displays/voltagesource.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/paintlog.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

using Ints = QVector<int>;

class Packs : public VoltageSource {
public:
    QVector<PackVoltages> list;
    mutable int asked = 0;

    QVector<PackVoltages> packs() const override
    {
        ++asked;
        return list;
    }
    void toggleCell(int windowNumber, int cell) override
    {
        for (PackVoltages &pack : list)
            if (pack.windowNumber == windowNumber)
                pack.selected[cell] = !pack.selected[cell];
    }
};

PackVoltages pack(int number, const Ints &millivolts, const Ints &selected = {})
{
    PackVoltages result = PackVoltages::of(samplePack(millivolts), number);
    for (const int cell : selected)
        result.selected[cell] = true;
    return result;
}

constexpr QSize usualSize{640, 360};

QVector<PackVoltages> sixteens(int packs)
{
    QVector<PackVoltages> result;
    for (int i = 1; i <= packs; ++i)
        result.append(pack(i, Ints(16, 3700 + i)));
    return result;
}

} // namespace

Q_DECLARE_METATYPE(VoltageChart)

/// The comparison of cell voltages: its axis, its bars, its modes.
class TestVoltageComparison : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
    }

    void axis_data()
    {
        columns<int, int, int, int, int>({"lowest", "highest", "lower", "upper", "step"});
        QTest::newRow("one voltage") << 4000 << 4000 << 3980 << 4020 << 20;
        QTest::newRow("noise") << 4000 << 4099 << 3980 << 4120 << 20;
        QTest::newRow("100 mV") << 4000 << 4100 << 3980 << 4120 << 20;
        QTest::newRow("101 mV") << 4000 << 4101 << 3950 << 4150 << 50;
        QTest::newRow("a pack") << 3995 << 4071 << 3960 << 4100 << 20;
        QTest::newRow("two chemistries") << 1200 << 4180 << 0 << 5000 << 1000;
        QTest::newRow("an empty cell") << 0 << 4180 << 0 << 5000 << 1000;
        QTest::newRow("below zero") << -50 << 50 << -80 << 80 << 20;
        QTest::newRow("hostile") << -2147483647 - 1 << 2147483647 << -1500000000 << 1500000000 << 500000000;
    }

    void axis()
    {
        QFETCH(int, lowest);
        QFETCH(int, highest);
        const VoltageAxis axis = VoltageAxis::around(lowest, highest);
        QTEST(axis.lower, "lower");
        QTEST(axis.upper, "upper");
        QTEST(axis.step, "step");
        QCOMPARE(axis.marks().constFirst(), axis.lower);
        QCOMPARE(axis.marks().constLast(), axis.upper);
        QCOMPARE(axis.y(axis.lower, 300, 100), 300);
        QCOMPARE(axis.y(highest, 300, 100) < 300, highest > lowest || axis.lower < lowest);
        QCOMPARE(axis.y(2147483647, 300, 100), 100);
    }

    void shownCells_data()
    {
        columns<int, int, Ints, QString>({"selection", "oneCell", "cells", "elseText"});
        const auto row
            = [](const char *name, int selection, int oneCell, const Ints &cells, const char *text) {
                  QTest::newRow(name) << selection << oneCell << cells << QString(text);
              };
        row("-", VoltageChart::AllButSelected, -1, {0, 2}, "All cells are hidden.");
        row("S", VoltageChart::All, -1, {0, 1, 2, 3}, "No cell selected");
        row("+", VoltageChart::OnlySelected, -1, {1, 3}, "No cell selected");
        row("the first, whatever is selected", VoltageChart::OnlySelected, 0, {0}, "No cell 1");
        row("one that is not there", VoltageChart::All, 7, {}, "No cell 8");
    }

    void shownCells()
    {
        QFETCH(int, selection);
        QFETCH(int, oneCell);
        VoltageChart chart;
        chart.selection = VoltageChart::Selection(selection);
        chart.oneCell = oneCell;
        const PackVoltages four = pack(1, {4000, 4000, 4000, 4000}, {1, 3});
        QTEST(chart.shownCells(four), "cells");
        QTEST(chart.noCellText(four), "elseText");
        QCOMPARE(chart.noCellText({}), QString("No cell data"));
    }

    void cellsOfAnyRecord()
    {
        Varnel3Data record = samplePack({4000, 4100});
        const PackVoltages two = PackVoltages::of(record, 7);
        QCOMPARE(two.windowNumber, 7);
        QCOMPARE(two.device, QString("Varnel 3"));
        QCOMPARE(two.cellCount, 2);
        QCOMPARE(two.voltages[1], 4100);
        record.cellCount = 99;
        QCOMPARE(PackVoltages::of(record, 1).cellCount, 16);
        record.cellCount = -1;
        QVERIFY(!PackVoltages::of(record, 1).hasCellData);
        record = samplePack({4000, 4000});
        record.flag5 = '_';
        QVERIFY(!PackVoltages::of(record, 1).hasCellData);
        QCOMPARE(PackVoltages::of(record, 1).cellCount, 0);
    }

    void picture();
    void details_data();
    void details();
    void cellAt();
    void page();
    void scrolling();
    void oneCellByClickAndKey();
    void selectionButton();
    void window();
    void hiddenAsksNothing();
    void keysAndWheelScroll();
    void choosingKeepsThePlace();
};

void TestVoltageComparison::picture()
{
    VoltageChart chart;
    chart.packs = {pack(1, {4000, 4040, 3960}), pack(2, {4040, 3970}, {1})};
    chart.packs[1].staleSince = QDateTime({2026, 1, 2}, {3, 4, 5});
    VERIFY_PAINTS(
        usualSize, [&](QPainter &painter) { chart.paint(painter, usualSize, 0); },
        "line 52,294 639,294 #3c3c3c; text '3.94' right 46,294 11 Arial #ffffff; "
        "line 52,252 639,252 #3c3c3c; text '3.96' right 46,252 11 Arial #ffffff; "
        "line 52,209 639,209 #3c3c3c; text '3.98' right 46,209 11 Arial #ffffff; "
        "line 52,167 639,167 #3c3c3c; text '4.00' right 46,167 11 Arial #ffffff; "
        "line 52,124 639,124 #3c3c3c; text '4.02' right 46,124 11 Arial #ffffff; "
        "line 52,82 639,82 #3c3c3c; text '4.04' right 46,82 11 Arial #ffffff; line 52,39 639,39 #3c3c3c; "
        "text '4.06' right 46,39 11 Arial #ffffff; text '[V]' right 46,12 11 Arial #ffffff; "
        "line 52,0 52,360 #7f7f7f; line 52,294 359,294 #7f7f7f; rect 56,3 18x18 #ffff00; "
        "text '1' mid 65,12 12 Arial #000000; text 'Varnel 3' left 80,12 12 Arial #ffffff; "
        "rect 145,167 33x127 #4678ff; text '1' mid 161,304 11 Arial #ffffff; rect 189,82 33x212 #e6d200; "
        "text '2' mid 205,304 11 Arial #ffffff; rect 233,252 33x42 #ff7f00; "
        "text '3' mid 249,304 11 Arial #ffffff; text 'Max 4.040 V, cell 2' left 56,319 11 Arial #ffffff; "
        "text 'Min 3.960 V, cell 3' left 56,334 11 Arial #ffffff; "
        "text 'Spread 0.080 V' left 56,349 11 Arial #ffffff; line 360,0 360,360 #7f7f7f; "
        "line 360,294 639,294 #7f7f7f; rect 364,3 18x18 #ffff00; text '2' mid 373,12 12 Arial #000000; "
        "text 'Varnel 3' left 388,12 12 Arial #ffffff; "
        "text 'No line since 03:04:05' left 364,30 11 Arial #ffffff; rect 461,82 33x212 #e6d200 dim; "
        "text '1' mid 477,304 11 Arial #ffffff dim; rect 505,230 33x64 #ff7f00 dim; "
        "rect 505,230 33x64 pen2 #ffffff dim; text '2' mid 521,304 12 bold Arial #ffffff dim; "
        "text 'Max 4.040 V, cell 1' left 364,319 11 Arial #ffffff dim; "
        "text 'Min 3.970 V, cell 2' left 364,334 11 Arial #ffffff dim; "
        "text 'Spread 0.070 V' left 364,349 11 Arial #ffffff dim",
        true);
}

void TestVoltageComparison::details_data()
{
    columns<VoltageChart, int, QString>({"chart", "scroll", "line"});
    const auto row = [](const char *name, const VoltageChart &chart, const char *line, int scroll = 0) {
        QTest::newRow(name) << chart << scroll << QString(line);
    };
    row("nothing", {}, "text 'NO DATA' mid 320,180 53 Arial #ffffff");
    VoltageChart chart;
    chart.packs = {pack(1, {4000, 4040, 3960}), pack(2, {4040, 3970}, {1})};
    row("scrolled", chart, "rect 135,167 33x127 #4678ff; line 42,0 42,360 #7f7f7f", 10);
    chart.blackGround = false;
    row("on white", chart,
        "line 52,294 639,294 #d7d7d7; text '[V]' right 46,12 11 Arial #000000; "
        "rect 505,230 33x64 pen2 #000000; text '2' mid 521,304 12 bold Arial #000000");
    chart.oneCell = 1;
    row("one cell", chart, "text '3.970 V' mid 493,326 19 bold Arial #000000");
    row("one cell's colour", chart, "rect 182,82 33x212 #4678ff; rect 476,230 33x64 pen2 #000000");
    chart.oneCell = 2;
    row("one cell missing", chart, "text 'No cell 3' mid 493,167 15 Arial #000000");
    chart.oneCell = -1;
    chart.selection = VoltageChart::OnlySelected;
    row("+", chart,
        "text 'No cell selected' mid 199,167 15 Arial #000000; rect 476,167 33x127 #4678ff; "
        "text '2' mid 492,304 11 Arial #000000");
    chart = {};
    chart.packs = {pack(3, {1200, 4180, 1300, 4100})};
    row("tenths", chart, "text '5.0' right 46,39 11 Arial #ffffff; text '0.0' right 46,294 11 Arial #ffffff");
    chart.packs[0].device
        = "Varnel 3 of no end, Varnel 3 of no end, Varnel 3 of no end, Varnel 3 of no end and more";
    chart.scale = 1.5;
    row("larger", chart, "rect 84,5 27x27 #ffff00; text '[V]' right 69,18 16 Arial #ffffff");
    chart = {};
    chart.packs = sixteens(3);
    row("narrow", chart,
        "rect 66,160 11x134 #e6d200; rect 81,160 11x134 #4678ff; text '16' mid 297,304 11 Arial #ffffff");
}

void TestVoltageComparison::details()
{
    QFETCH(VoltageChart, chart);
    QFETCH(int, scroll);
    QFETCH(QString, line);
    VERIFY_PAINTS(
        usualSize, [&](QPainter &painter) { chart.paint(painter, usualSize, scroll); }, line);
}

void TestVoltageComparison::cellAt()
{
    VoltageChart chart;
    chart.packs = {pack(1, {4000, 4040, 3960}), pack(2, {4040, 3970}, {0})};
    chart.selection = VoltageChart::AllButSelected;
    const auto at = [&chart](int x, int scroll) {
        const VoltageChart::CellRef hit = chart.cellAt({x, 5}, usualSize, scroll);
        return QString("%1 %2").arg(hit.pack).arg(hit.cell);
    };
    const QVector<std::tuple<int, int, const char *>> hits{{136, 0, "-1 -1"}, {137, 0, "0 0"},
        {185, 0, "0 0"}, {186, 0, "0 1"}, {273, 0, "0 2"}, {274, 0, "-1 -1"}, {500, 0, "1 1"},
        {127, 10, "0 0"}, {45, 110, "-1 -1"}, {52, 100, "0 0"}};
    for (const auto &[x, scroll, cell] : hits)
        QCOMPARE(at(x, scroll), QString(cell));
    QVERIFY(chart.barRect(1, 0, usualSize, 0).isNull());
    QCOMPARE(chart.barRect(0, 1, usualSize, 10).left(), 179);
}

/// All packs in rows on a page, at most three in one, on one axis.
void TestVoltageComparison::page()
{
    VoltageChart chart;
    QCOMPARE(chart.pageSize(), QSize(480, 280));
    chart.packs = {pack(1, {4000}), pack(2, {4000}), pack(3, {4000})};
    QCOMPARE(chart.pageSize(), QSize(480, 280));
    chart.packs.append(pack(4, {4100}));
    QCOMPARE(chart.pageSize(), QSize(480, 560));
    VERIFY_PAINTS(
        chart.pageSize(), [&](QPainter &painter) { chart.paintPage(painter); },
        "rect 56,3 18x18 #ffff00; rect 270,3 18x18 #ffff00; "
        "rect 56,283 18x18 #ffff00; rect 270,283 18x18 #ffff00; "
        "text '4.12' right 46,39 11 Arial #ffffff; text '4.12' right 46,319 11 Arial #ffffff");
    chart.packs = sixteens(7);
    QCOMPARE(chart.pageSize(), QSize(844, 840));
}

void TestVoltageComparison::scrolling()
{
    VoltageChart chart;
    QCOMPARE(chart.firstSeen(640, 0), -1);
    QCOMPARE(chart.contentWidth(640), 640);
    chart.packs = sixteens(12);
    QCOMPARE(chart.groupsWidth(640), 588);
    QCOMPARE(chart.groupsWidth(20), 1);
    QCOMPARE(chart.contentWidth(640), 52 + 12 * 264);
    QCOMPARE(chart.contentWidth(4000), 4000);
    QCOMPARE(chart.groupStart(2, 640), 528);
    const QVector<QPair<int, int>> firsts{{0, 0}, {1, 1}, {264, 1}, {265, 2}, {9999, 11}};
    for (const auto &[scroll, first] : firsts)
        QCOMPARE(chart.firstSeen(640, scroll), first);
    QCOMPARE(chart.firstSeen(200, 10), 0); // the next begins out of sight
    QCOMPARE(chart.barRect(11, 15, usualSize, chart.contentWidth(640) - 640).right(), 625);
    const auto faultOf = [&chart](const char *expected) {
        return paintFault(
            usualSize, [&](QPainter &painter) { chart.paint(painter, usualSize, 320); }, expected);
    };
    QCOMPARE(faultOf("rect 264,3 18x18 #ffff00; rect 528,3 18x18 #ffff00"), QByteArray());
    for (const char *outOfSight : {"rect -264,3 18x18 #ffff00", "rect 792,3 19x18 #ffff00"})
        QVERIFY(!faultOf(outOfSight).isEmpty());
}

void TestVoltageComparison::oneCellByClickAndKey()
{
    WarningCollector warnings;
    Packs source;
    source.list = {pack(1, {4000, 4010, 4020}), pack(5, {4000, 4010, 4020, 4030})};
    ViewState state;
    auto *window = new VoltageComparison;
    window->setViewState(&state);
    window->setSource(&source);
    window->show();
    auto *canvas = window->findChild<VoltageCanvas *>();
    const auto oneCell = [canvas] { return canvas->chart().oneCell; };
    const auto click = [canvas](int packIndex, int cell, Qt::KeyboardModifiers modifiers) {
        const QRect bar = canvas->chart().barRect(packIndex, cell, canvas->size(), 0);
        QTest::mouseClick(canvas, Qt::LeftButton, modifiers, bar.center());
    };
    QCOMPARE(oneCell(), -1);
    click(1, 2, Qt::NoModifier);
    QCOMPARE(oneCell(), 2);
    QVERIFY(window->findChild<QLabel *>(QStringLiteral("hintLabel"))->text().contains(QLatin1Char('3')));
    QTest::keyClick(window, Qt::Key_Right);
    QCOMPARE(oneCell(), 3);
    QTest::keyClick(window, Qt::Key_Right); // no window has a fifth
    QCOMPARE(oneCell(), 3);
    QTest::keyClick(window, Qt::Key_Left);
    click(0, 2, Qt::NoModifier);
    QCOMPARE(oneCell(), -1);
    QTest::keyClick(window, Qt::Key_Space);
    QCOMPARE(oneCell(), 2);
    QTest::keyClick(window, Qt::Key_Escape);
    QCOMPARE(oneCell(), -1);
    QTest::mouseClick(canvas, Qt::LeftButton, Qt::NoModifier, {5, 100}); // the axis
    QCOMPARE(oneCell(), -1);
    QTest::keyClick(window, Qt::Key_Space);
    QTest::mouseClick(canvas, Qt::LeftButton, Qt::NoModifier, {5, 100});
    QCOMPARE(oneCell(), -1);

    click(1, 3, Qt::ControlModifier);
    QVERIFY(source.list[1].selected[3]);
    QVERIFY(canvas->chart().packs[1].selected[3]);
    QCOMPARE(oneCell(), -1);

    // The shell makes a new window when it numbers the graph windows: the choice stays.
    QTest::keyClick(window, Qt::Key_Return);
    QPointer<VoltageComparison> old = window;
    QSignalSpy closed(window, SIGNAL(closed()));
    window->close();
    QCOMPARE(closed.count(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!old);
    VoltageComparison next;
    next.setSource(&source);
    next.show();
    QCOMPARE(next.findChild<VoltageCanvas *>()->chart().oneCell, 2);
    next.showAllCells(); // as the page of a window that is closed
    next.hide();
    next.show();
    QCOMPARE(next.findChild<VoltageCanvas *>()->chart().oneCell, -1);
    QTest::keyClick(&next, Qt::Key_Escape);
    QCOMPARE(warnings.warnings(), QStringList());
}

void TestVoltageComparison::selectionButton()
{
    Packs source;
    source.list = {pack(1, {4000, 4010, 4020}, {1})};
    VoltageComparison window;
    window.setSource(&source);
    window.show();
    auto *button = window.findChild<QPushButton *>(QStringLiteral("selectionButton"));
    auto *canvas = window.findChild<VoltageCanvas *>();
    QStringList texts;
    QList<int> counts;
    for (int i = 0; i < 4; ++i) {
        texts.append(button->text());
        counts.append(canvas->chart().shownCells(source.list[0]).size());
        button->click();
    }
    QCOMPARE(texts,
        (QStringList{QStringLiteral("S"), QStringLiteral("+"), QStringLiteral("-"), QStringLiteral("S")}));
    QCOMPARE(counts, (QList<int>{3, 1, 2, 3}));
    button->click();
    button->click(); // back to where the other tests start
}

void TestVoltageComparison::hiddenAsksNothing()
{
    Packs source;
    VoltageComparison window;
    window.setSource(&source);
    window.updateVoltage();
    QCOMPARE(source.asked, 0);
    source.list = {pack(1, {4000})};
    window.show();
    QCOMPARE(source.asked, 1);
    QCOMPARE(window.findChild<VoltageCanvas *>()->chart().packs.size(), 1);
    for (int i = 0; i < 50; ++i)
        window.updateVoltage();
    settle(window);
    QCOMPARE(source.asked, 2);
}

void TestVoltageComparison::keysAndWheelScroll()
{
    Packs source;
    source.list = sixteens(12);
    VoltageComparison window;
    window.setSource(&source);
    window.resize(usualSize);
    window.show();
    const auto *bar = window.findChild<QScrollBar *>();
    QTRY_VERIFY_WITH_TIMEOUT(bar->isVisible() && window.width() == 640, 30000);
    const auto turn = [&window](const QPoint &angle) {
        QWheelEvent event(
            {9, 99}, window.mapToGlobal(QPoint(9, 99)), {}, angle, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &event);
    };
    const auto value = [&](Qt::Key key) {
        QTest::keyClick(&window, key);
        return bar->value();
    };
    QCOMPARE(bar->maximum(), 52 + 12 * 264 - 640);
    QCOMPARE(value(Qt::Key_Right), 40);
    QCOMPARE(value(Qt::Key_PageDown), 628); // all but the axis: no cell is passed over
    QCOMPARE(value(Qt::Key_Left), 588);
    turn({0, -120});
    QCOMPARE(bar->value(), 628);
    turn({240, 0});
    QCOMPARE(bar->value(), 548);
    VERIFY_PAINTS(
        *window.findChild<VoltageCanvas *>(), "rect 36,3 18x18 #ffff00; text '3' mid 45,12 12 Arial #000000");
    QCOMPARE(value(Qt::Key_PageUp), 0);
    QCOMPARE(value(Qt::Key_End), bar->maximum());
    QCOMPARE(value(Qt::Key_Home), 0);
}

void TestVoltageComparison::window()
{
    ViewState state;
    Packs source;
    source.list = {pack(1, {4000})};
    VoltageComparison window;
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(window.windowTitle(), QString("Varnel - voltage comparison"));
    QVERIFY(!window.windowIcon().isNull());
    window.setViewState(&state);
    window.setSource(&source);
    window.show();
    const auto *canvas = window.findChild<VoltageCanvas *>();
    const auto *hint = window.findChild<QLabel *>("hintLabel");
    QCOMPARE(window.minimumWidth(), 300);
    QCOMPARE(canvas->minimumHeight(), 190);
    QCOMPARE(hint->font().pixelSize(), 11);
    QCOMPARE(window.findChild<QPushButton *>()->pos(), QPoint(3, 3));
    QCOMPARE(hint->x(), window.findChild<QPushButton *>()->geometry().right() + 1 + 6);
    QCOMPARE(hint->palette().color(QPalette::WindowText), QColor(Qt::white));
    QVERIFY(canvas->chart().blackGround);
    ViewSwitches switches;
    switches.blackBackground = false;
    state.setSwitches(switches);
    settle(window);
    QVERIFY(!canvas->chart().blackGround);
    QCOMPARE(hint->palette().color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(window.palette().color(QPalette::Window), QColor(Qt::white));
    QTest::mouseClick(window.findChild<VoltageCanvas *>(), Qt::RightButton);
    QCOMPARE(canvas->chart().oneCell, -1);
    QSignalSpy asked(&window, SIGNAL(closed()));
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.close();
    QCOMPARE(asked.count(), 1);
}

/// What is looked at stays in view when the groups become narrow and wide again.
void TestVoltageComparison::choosingKeepsThePlace()
{
    Packs source;
    source.list = sixteens(12);
    VoltageComparison window;
    window.setSource(&source);
    window.resize(4000, 360);
    window.show();
    auto *bar = window.findChild<QScrollBar *>();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!bar->isVisible());
    window.resize(400, 360);
    QTRY_VERIFY(bar->isVisible() && bar->height() > 0);
    auto *canvas = window.findChild<VoltageCanvas *>();
    bar->setValue(canvas->chart().groupStart(6, canvas->width()) - 9);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Escape}) {
        QTest::keyClick(&window, key);
        QCOMPARE(bar->value(), canvas->chart().groupStart(6, canvas->width()) - 9);
    }
}

QTEST_MAIN(TestVoltageComparison)
#include "tst_voltagecomparison.moc"
