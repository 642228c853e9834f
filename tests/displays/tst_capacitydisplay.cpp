#include "displays/capacitydisplay.h"

#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/paintlog.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace {

constexpr QSize smallest{470, 280};
using Ints = QVector<int>;

CapacityChart chartOf(const Ints &capacities, int first = 0, qreal scale = 1.0)
{
    CapacityChart chart;
    for (const int capacity : capacities)
        chart.entries.append({capacity, 'C', chart.entries.size() + 1});
    chart.first = first;
    chart.scale = scale;
    return chart;
}

} // namespace

Q_DECLARE_METATYPE(CapacityChart)

/// The capacity comparison: where its bars stand, in which colours, and which entries are in view.
class TestCapacityDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
    }

    void picture()
    {
        CapacityChart chart = chartOf({2000, 500, 0});
        chart.entries[1].mode = 'D';
        chart.entries[1].number = 12;
        chart.entries[1].staleSince = QDateTime::currentDateTime();
        chart.entries[2].mode = ' ';
        const auto paint = [&chart](QPainter &painter) { chart.paint(painter, smallest); };
        VERIFY_PAINTS(smallest, paint,

            "line 20,224 450,224 #7f7f7f; line 20,56 450,56 #7f7f7f; line 20,112 450,112 #7f7f7f; "
            "line 20,168 450,168 #7f7f7f; rect 30,56 38x168 #007f00; rect 36,56 7x168 #00ff00; "
            "rect 30,56 37x167 pen1 #00ff00; rect 35,36 39x13 #ffffc8; rect 35,36 39x13 pen1 #000000; "
            "text '1' mid 55,43 11 Arial #000000; rect 35,20 39x13 #ffff00; "
            "rect 35,20 39x13 pen1 #000000; text '100%' mid 55,27 11 Arial #000000; "
            "text '1' foot 49,252 13 bold Arial #ffffff; text '2.000 Ah' mid 49,260 11 Arial #ffffff; "
            "rect 82,182 38x42 #7f0000 dim; rect 88,182 7x42 #ff0000 dim; "
            "rect 82,182 37x41 pen1 #ff0000 dim; rect 87,162 39x13 #ffffc8 dim; "
            "rect 87,162 39x13 pen1 #000000 dim; text '12' mid 107,169 11 Arial #000000 dim; "
            "rect 87,146 39x13 #ffff00 dim; rect 87,146 39x13 pen1 #000000 dim; "
            "text '25%' mid 107,153 11 Arial #000000 dim; "
            "text '2' foot 101,252 13 bold Arial #ffffff dim; "
            "text '0.500 Ah' mid 101,260 11 Arial #ffffff dim; rect 134,223 38x1 #7f7f00; "
            "rect 140,223 7x1 #ffff00; rect 134,223 37x0 pen1 #ffff00; rect 139,203 39x13 #ffffc8; "
            "rect 139,203 39x13 pen1 #000000; text '3' mid 159,210 11 Arial #000000; "
            "text '3' foot 153,252 13 bold Arial #ffffff; text '0.000 Ah' mid 153,260 11 Arial #ffffff",
            true);
    }

    void details_data()
    {
        ::columns<CapacityChart, QSize, bool, QString>({"chart", "size", "black", "line"});
        const auto row = [](const char *name, const CapacityChart &chart, const QSize &size, bool black,
                             const char *line) { QTest::newRow(name) << chart << size << black << line; };
        row("on paper", chartOf({2000}), smallest, false, "text '1' foot 49,252 13 bold Arial #000000");
        row("outline", chartOf({2000}), smallest, false, "rect 30,56 37x167 pen1 #00ff00");
        row("outline of two pixels", chartOf({9000, 110}), smallest, false, "rect 82,222 37x1 pen1 #007f00");
        row("outline of three", chartOf({9000, 161}), smallest, false, "rect 82,221 37x2 pen1 #00ff00");
        row("flat on black", chartOf({0}), smallest, true, "rect 30,223 37x0 pen1 #00ff00");
        row("wide", chartOf({0, 0, 0, 0, 0, 0, 0, 7}), {1900, 280}, true, "rect 1689,56 172x168 #007f00");
        row("larger", chartOf({7}, 0, 1.5), {705, 420}, true, "rect 45,84 57x252 #007f00");
        row("larger fonts", chartOf({7}, 0, 1.5), {705, 420}, true, "rect 53,54 59x20 pen1 #000000");
        row("room for no capacity", chartOf({7}), {470, 210}, true, "rect 35,22 39x13 #ffffc8");
        row("on the edge", chartOf({7}), {470, 100}, true,
            "rect 35,0 39x13 #ffff00; rect 35,10 39x13 #ffffc8");
        row("far down the list", chartOf({1, 1, 7}, 2), smallest, true,
            "text '3' mid 55,43 11 Arial #000000");
    }

    void details()
    {
        QFETCH(CapacityChart, chart);
        QFETCH(QSize, size);
        QFETCH(bool, black);
        QFETCH(QString, line);
        chart.blackGround = black;
        VERIFY_PAINTS(
            size, [&](QPainter &painter) { chart.paint(painter, size); }, line);
    }

    void page()
    {
        CapacityChart chart = chartOf({2000, 1044});
        chart.entries[1].recorded = "2: Varnel 3 COM2, 14 x NiMh";
        QCOMPARE(chart.pageSize(smallest), QSize(470, 280 + 2 * 15));
        VERIFY_PAINTS(
            chart.pageSize(smallest), [&](QPainter &painter) { chart.paintPage(painter, smallest); },

            "rect 30,56 38x168 #007f00; text '1, 2.000 Ah' left 30,288 11 Arial #000000; "
            "text '2: Varnel 3 COM2, 14 x NiMh, 1.044 Ah' left 30,303 11 Arial #000000");
    }

    void barTops_data()
    {
        ::columns<Ints, Ints, Ints>({"capacities", "tops", "percents"});
        // 280 pixels: 168 of them between the baseline at 224 and the full scale at 56.
        QTest::newRow("parts") << Ints{1000, 500, 1999, 2000} << Ints{140, 182, 57, 56}
                               << Ints{50, 25, 100, 100};
        QTest::newRow("nothing") << Ints{0, 100} << Ints{223, 56} << Ints{0, 100};
        QTest::newRow("all nothing") << Ints{0, 0} << Ints{223, 223} << Ints{0, 0};
        QTest::newRow("below nothing") << Ints{-50, -7} << Ints{223, 223} << Ints{0, 0};
        QTest::newRow("1 mAh") << Ints{1, 1} << Ints{56, 56} << Ints{100, 100};
        QTest::newRow("32 bits") << Ints{2147483647, 1073741824} << Ints{56, 140} << Ints{100, 50};
    }

    void barTops()
    {
        QFETCH(Ints, capacities);
        QFETCH(Ints, tops);
        QFETCH(Ints, percents);
        const CapacityChart chart = chartOf(capacities);
        for (int i = 0; i < capacities.size(); ++i) {
            QCOMPARE(chart.barTop(i, 280), tops[i]);
            QCOMPARE(qRound(chart.percent(i)), percents[i]);
        }
    }

    void entryAtPoint()
    {
        CapacityChart chart = chartOf({10, 20, 30, 40, 50, 60, 70, 80, 90}, 1);
        QCOMPARE(chart.visibleEnd(), 9);
        const QVector<QPair<int, int>> entries{
            {29, -1}, {30, 1}, {67, 1}, {68, -1}, {81, -1}, {82, 2}, {394, 8}, {431, 8}, {432, -1}};
        for (const auto &[x, entry] : entries)
            QCOMPARE(chart.entryAt({x, 10}, smallest), entry);
    }

    void paging();
    void removing();
    void changing();
    void openingPullsTheViewBack();
    void window();
    void toolTips();
    void wantsEntriesWhileShown();

private:
    /// The kinds of process in the eight columns, as letters; '.' where no bar stands.
    static QByteArray columnsOf(CapacityDisplay &display)
    {
        QByteArray kinds;
        const QImage image = display.grab().toImage();
        for (int x = 64; x < 470; x += 52) {
            const QRgb pixel = image.pixel(x, 221);
            kinds += pixel == qRgb(0, 127, 0) ? 'C' : pixel == qRgb(127, 0, 0) ? 'D' : '.';
        }
        return kinds;
    }
    /// Entries of these kinds, numbered from 1.
    static void fill(CapacityDisplay &display, const QByteArray &kinds)
    {
        display.resize(smallest);
        for (int i = 0; i < kinds.size(); ++i)
            display.addEntry({1000, kinds[i], i + 1});
    }
};

void TestCapacityDisplay::paging()
{
    CapacityDisplay display;
    fill(display, "DCCCCCCC");
    auto *next = display.findChild<QPushButton *>("next");
    auto *previous = display.findChild<QPushButton *>("previous");
    // What can be paged to, after each step.
    const auto stands = [&](const char *columns, bool back, bool on) {
        QCOMPARE(columnsOf(display), QByteArray(columns));
        QCOMPARE(previous->isEnabled(), back);
        QCOMPARE(next->isEnabled(), on);
    };
    stands("DCCCCCCC", false, false);
    display.showNext();
    display.showPrev();
    stands("DCCCCCCC", false, false);
    display.addEntry({1000, 'C', 9}); // scrolls into view
    display.addEntry({1000, 'D', 10});
    stands("CCCCCCCD", true, false);
    display.showNext();
    previous->click();
    stands("CCCCCCCC", true, true);
    QTest::keyClick(&display, Qt::Key_Left);
    stands("DCCCCCCC", false, true);
    display.showPrev();
    next->click();
    stands("CCCCCCCC", true, true);
    QTest::keyClick(&display, Qt::Key_Right);
    stands("CCCCCCCD", true, false);
    display.clear();
    stands("........", false, false);
    display.addEntry({1000, 'D', 1});
    stands("D.......", false, false);
}

void TestCapacityDisplay::removing()
{
    CapacityDisplay display;
    fill(display, "DCCCCCCCD");
    display.removeEntry(-1);
    display.removeEntry(9);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCCD"));
    display.removeEntry(4);
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCD"));
    display.addEntry({1000, 'C', 10}); // comes into view still
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCDC"));
    display.showPrev();
    display.removeEntry(0); // of nine, the last out of view: what is seen is full
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCDC"));
    QTest::keyClick(&display, Qt::Key_Right);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCDC"));
    for (int left = 8; left > 0; --left)
        display.removeEntry(left - 1);
    QCOMPARE(columnsOf(display), QByteArray("........"));
    display.addEntry({1000, 'D', 1});
    QCOMPARE(columnsOf(display), QByteArray("D......."));
}

void TestCapacityDisplay::changing()
{
    CapacityDisplay display;
    fill(display, "CC");
    display.changeEntry({500, 'D', 2}, 0);
    display.changeEntry({500, 'D', 2}, 3);
    QCOMPARE(columnsOf(display), QByteArray("CC......"));
    display.changeEntry({500, 'D', 2}, 2);
    QCOMPARE(columnsOf(display), QByteArray("CD......"));
    display.changeEntry({500, 'D', 1}, 1);
    QCOMPARE(columnsOf(display), QByteArray("DD......"));
}

void TestCapacityDisplay::openingPullsTheViewBack()
{
    CapacityDisplay display;
    fill(display, "DDCCCCCCCCCC");
    display.setWindowCount(2);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCCC"));
    display.show();
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC")); // the second entry is leftmost
    display.setWindowCount(0);
    display.hide();
    display.show();
    QCOMPARE(columnsOf(display), QByteArray("DDCCCCCC"));
    display.addEntry({1000, 'D', 13});
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC")); // its end went back, too
}

void TestCapacityDisplay::window()
{
    CapacityDisplay display;
    QVERIFY(display.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(display.windowTitle(), QString("Varnel - capacity comparison"));
    QVERIFY(!display.windowIcon().isNull());
    QCOMPARE(display.minimumSize(), smallest);
    QCOMPARE(display.sizeHint(), QSize(465, 364));
    fill(display, "");
    display.show();
    QCOMPARE(display.findChild<QPushButton *>("previous")->geometry(), QRect(7, 120, 15, 40));
    auto *next = display.findChild<QPushButton *>("next");
    QCOMPARE(next->geometry(), QRect(447, 120, 15, 40));
    QCOMPARE(next->iconSize(), QSize(12, 12));
    QCOMPARE(next->toolTip(), QString("Next"));
    QCOMPARE(display.grab().toImage().pixel(2, 2), qRgb(0, 0, 0));
    ViewState state;
    ViewSwitches switches;
    switches.blackBackground = false;
    state.setSwitches(switches);
    display.setViewState(&state);
    QCOMPARE(display.grab().toImage().pixel(2, 2), qRgb(255, 255, 255));
    switches.blackBackground = true;
    state.setSwitches(switches);
    QCOMPARE(display.grab().toImage().pixel(2, 2), qRgb(0, 0, 0));
}

void TestCapacityDisplay::toolTips()
{
    CapacityDisplay display;
    fill(display, "C");
    CapacityEntry silent{500, 'D', 2, "2: Varnel 3 COM2", QDateTime({2026, 1, 2}, {3, 4, 5})};
    display.addEntry(silent);
    display.show();
    const auto toolTipAt = [&display](int x) {
        const QPoint point(x, 100);
        QHelpEvent event(QEvent::ToolTip, point, display.mapToGlobal(point));
        QCoreApplication::sendEvent(&display, &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    QCOMPARE(toolTipAt(40), QString("1, 1.000 Ah"));
    QCOMPARE(toolTipAt(90), QString("2: Varnel 3 COM2, 0.500 Ah\nNo line since 03:04:05"));
    toolTipAt(400);
    QTRY_VERIFY_WITH_TIMEOUT(!QToolTip::isVisible(), 8000); // 0.3 s; by itself in 10
}

void TestCapacityDisplay::wantsEntriesWhileShown()
{
    CapacityDisplay display;
    QSignalSpy wanted(&display, SIGNAL(entriesWanted()));
    QSignalSpy closed(&display, SIGNAL(closed()));
    auto *timer = display.findChild<QTimer *>();
    QCOMPARE(timer->interval(), 1000);
    QVERIFY(!timer->isActive());
    display.show();
    QCOMPARE(wanted.count(), 1);
    timer->setInterval(1);
    QTRY_VERIFY_WITH_TIMEOUT(wanted.count() > 2, 30000);
    QCOMPARE(closed.count(), 0);
    display.close();
    QCOMPARE(closed.count(), 1);
    QVERIFY(!timer->isActive());
}

QTEST_MAIN(TestCapacityDisplay)
#include "tst_capacitydisplay.moc"
