#include "displays/voltagecomparison.h"

#include "widgets/displayscale.h"
#include "displays/samplepack.h"
#include "displays/voltagecanvas.h"
#include "displays/voltagesource.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace {

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

PackVoltages pack(int number, const QVector<int> &millivolts, const QVector<int> &selected = {})
{
    PackVoltages result = PackVoltages::of(samplePack(millivolts), number);
    for (const int cell : selected)
        result.selected[cell] = true;
    return result;
}

} // namespace

/// The comparison of cell voltages: its axis, its bars, its modes.
class TestVoltageComparison : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void axis_data()
    {
        columns<int, int, int, int, int>({"lowest", "highest", "lower", "upper", "step"});
        QTest::newRow("one voltage") << 4000 << 4000 << 3980 << 4020 << 20;
        QTest::newRow("a pack") << 3995 << 4071 << 3960 << 4100 << 20;
        QTest::newRow("two chemistries") << 1200 << 4180 << 0 << 5000 << 1000;
        QTest::newRow("an empty cell") << 0 << 4180 << 0 << 5000 << 1000;
        QTest::newRow("below zero") << -50 << 50 << -80 << 80 << 20;
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
        QCOMPARE(axis.y(axis.upper, 300, 100), 100);
    }

    void axisOfHostileVoltages()
    {
        const VoltageAxis axis = VoltageAxis::around(-2147483647 - 1, 2147483647);
        QVERIFY(axis.marks().size() < 12);
        QCOMPARE(axis.y(2147483647, 300, 100), 100);
    }

    void noCellsSaysWhy_data()
    {
        columns<int, int, int, QString>({"selection", "oneCell", "count", "text"});
        QTest::newRow("no cells") << int(VoltageChart::All) << -1 << 0 << QStringLiteral("No cell data");
        QTest::newRow("fewer than none")
            << int(VoltageChart::All) << -1 << -1 << QStringLiteral("No cell data");
        QTest::newRow("-") << int(VoltageChart::AllButSelected) << -1 << 2
                           << QStringLiteral("All cells are hidden.");
        QTest::newRow("+") << int(VoltageChart::OnlySelected) << -1 << 2
                           << QStringLiteral("No cell selected");
        QTest::newRow("one cell") << int(VoltageChart::AllButSelected) << 7 << 2
                                  << QStringLiteral("No cell 8");
    }

    void noCellsSaysWhy()
    {
        QFETCH(int, selection);
        QFETCH(int, oneCell);
        QFETCH(int, count);
        Varnel3Data record = samplePack({4000, 4000});
        record.cellCount = count;
        VoltageChart chart;
        chart.selection = VoltageChart::Selection(selection);
        chart.oneCell = oneCell;
        QTEST(chart.noCellText(PackVoltages::of(record, 1)), "text");
    }

    void shownCells_data()
    {
        columns<int, int, QVector<int>>({"selection", "oneCell", "cells"});
        QTest::newRow("-") << int(VoltageChart::AllButSelected) << -1 << QVector<int>{0, 2};
        QTest::newRow("S") << int(VoltageChart::All) << -1 << QVector<int>{0, 1, 2, 3};
        QTest::newRow("+") << int(VoltageChart::OnlySelected) << -1 << QVector<int>{1, 3};
        QTest::newRow("one cell, whatever is selected")
            << int(VoltageChart::AllButSelected) << 1 << QVector<int>{1};
        QTest::newRow("one cell that is not there") << int(VoltageChart::All) << 7 << QVector<int>{};
    }

    void shownCells()
    {
        QFETCH(int, selection);
        QFETCH(int, oneCell);
        VoltageChart chart;
        chart.selection = VoltageChart::Selection(selection);
        chart.oneCell = oneCell;
        QTEST(chart.shownCells(pack(1, {4000, 4000, 4000, 4000}, {1, 3})), "cells");
    }

    void barsStandOnOneAxis()
    {
        VoltageChart chart;
        chart.packs = {pack(1, {4000, 4040, 3960}), pack(2, {4040, 3970}, {1})};
        const QSize size(640, 360);
        const QRect high = chart.barRect(0, 1, size, 0);
        QCOMPARE(chart.barRect(1, 0, size, 0).top(), high.top());
        // The axis begins at 3940 mV, below the lowest cell: heights go by the distance from there.
        QVERIFY(qAbs(high.height() * 60 - chart.barRect(0, 0, size, 0).height() * 100) <= 100);

        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        chart.paint(painter, size, 0);
        const auto colourOf = [&](int packIndex, int cell) {
            return image.pixel(chart.barRect(packIndex, cell, size, 0).center());
        };
        QCOMPARE(colourOf(0, 1), qRgb(230, 210, 0)); // highest
        QCOMPARE(colourOf(0, 2), qRgb(255, 127, 0)); // lowest
        QCOMPARE(colourOf(0, 0), qRgb(70, 120, 255));
        const QRect selected = chart.barRect(1, 1, size, 0);
        QCOMPARE(image.pixel(selected.left(), selected.center().y()), qRgb(255, 255, 255)); // frame
        QCOMPARE(image.pixel(chart.barRect(1, 0, size, 0).center()), qRgb(230, 210, 0));

        const VoltageChart::CellRef hit = chart.cellAt(selected.center(), size, 0);
        QCOMPARE(hit.pack, 1);
        QCOMPARE(hit.cell, 1);
        QCOMPARE(chart.cellAt({5, 100}, size, 0).pack, -1); // the axis
    }

    void manyCellsScroll()
    {
        VoltageChart chart;
        for (int i = 1; i <= 12; ++i)
            chart.packs.append(pack(i, QVector<int>(16, 3700 + i)));
        const QSize size(640, 360);
        QVERIFY(chart.contentWidth(640) > 2000);
        QVERIFY(chart.barRect(0, 0, size, 0).width() >= 8);
        const QRect last = chart.barRect(11, 15, size, chart.contentWidth(640) - 640);
        QVERIFY(last.right() < 640 && last.left() > 560);
        QVERIFY(chart.pageSize().height() > chart.pageSize().width()); // rows, not one long line
    }

    void cellsOfAnyRecord()
    {
        Varnel3Data bare = samplePack({4000, 4000});
        bare.flag5 = '_';
        QVERIFY(!PackVoltages::of(bare, 1).hasCellData);
        QCOMPARE(PackVoltages::of(bare, 1).cellCount, 0);
        Varnel3Data hostile = samplePack({4000});
        hostile.cellCount = 99;
        QCOMPARE(PackVoltages::of(hostile, 1).cellCount, 16);
    }

    void oneCellByClickAndKey();
    void selectionButton();
    void hiddenAsksNothing();
    void choosingKeepsThePlace();
};

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
    QVERIFY(button->width() >= scaled(26));
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

    for (int i = 2; i <= 12; ++i)
        source.list.append(pack(i, QVector<int>(16, 4000)));
    window.updateVoltage();
    settle(window);
    // Paging passes over no cell.
    auto *bar = window.findChild<QScrollBar *>();
    auto *canvas = window.findChild<VoltageCanvas *>();
    QVERIFY(bar->isVisible() && bar->maximum() > 0);
    const int axis = canvas->width() - canvas->chart().groupsWidth(canvas->width());
    int seen = axis; // up to here, in the unscrolled picture
    for (int page = 0; page < 50 && bar->value() < bar->maximum(); ++page) {
        QVERIFY(bar->value() + axis <= seen);
        seen = bar->value() + canvas->width();
        QTest::keyClick(&window, Qt::Key_PageDown);
    }
    QCOMPARE(bar->value(), bar->maximum());
    QTest::keyClick(&window, Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
}

/// What is looked at stays in view when the groups become narrow and wide again.
void TestVoltageComparison::choosingKeepsThePlace()
{
    Packs source;
    for (int i = 1; i <= 12; ++i)
        source.list.append(pack(i, QVector<int>(16, 3700 + i)));
    VoltageComparison window;
    window.setSource(&source);
    window.resize(scaled(4000), scaled(360));
    window.show();
    auto *bar = window.findChild<QScrollBar *>();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!bar->isVisible());
    window.resize(scaled(400), scaled(360));
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
